// A history store that tests look into.
#pragma once

#include "platform/HistoryStore.h"

#include <map>

namespace scripted {

/// Ids count from 1. Keeps everything until the end of the test.
class ScriptedHistory final : public platform::HistoryStore {
public:
    std::int64_t add(const platform::HistoryEntry& entry, const std::string& score) override {
        if (ended)
            return 0;
        platform::HistoryEntry added = entry;
        added.id = static_cast<std::int64_t>(kept.size()) + 1;
        if (!score.empty()) {
            added.state = added.id;
            current = added.id;
            scores[added.id] = score;
        }
        kept.push_back(added);
        return added.id;
    }
    void setCurrent(std::int64_t state) override { current = state; }
    std::vector<platform::HistoryEntry> entries() override { return kept; }
    std::optional<std::string> score(std::int64_t state) override {
        const auto found = scores.find(state);
        return found == scores.end() ? std::nullopt : std::optional(found->second);
    }
    void clear() override {
        kept.clear();
        scores.clear();
    }
    std::uint64_t bytesUsed() override { return 0; }
    std::uint64_t mostBytes() override { return 1; }
    void end(bool isSafe) override {
        ended = true;
        endedSafely = isSafe;
    }
    std::vector<platform::RecoveredFile> recoverInto(const std::string& folderGiven) override {
        folder = folderGiven;
        return recovered;
    }

    /// The score that the next start would recover; no value if there is none.
    [[nodiscard]] std::optional<std::string> toRecover() {
        return ended && endedSafely ? std::nullopt : score(current);
    }

    std::vector<platform::HistoryEntry> kept;
    std::map<std::int64_t, std::string> scores;
    std::int64_t current = 0;
    bool ended = false;
    bool endedSafely = false;
    std::string folder; ///< that scores were recovered into
    std::vector<platform::RecoveredFile> recovered;
};

} // namespace scripted

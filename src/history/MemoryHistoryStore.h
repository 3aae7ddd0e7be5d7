// A history store that ends with the process: for hosts that keep nothing.
#pragma once

#include "platform/HistoryStore.h"

#include <map>

namespace velorin {

/// Ids count from 1. It keeps the last states only, so that its memory is bounded.
class MemoryHistoryStore final : public platform::HistoryStore {
public:
    std::int64_t add(const platform::HistoryEntry& entry, const std::string& score) override;
    void setCurrent(std::int64_t) override {}
    std::vector<platform::HistoryEntry> entries() override { return entries_; }
    std::optional<std::string> score(std::int64_t state) override;
    void clear() override;
    std::uint64_t bytesUsed() override { return bytes_; }
    std::uint64_t mostBytes() override { return most; }
    void end(bool) override {}
    std::vector<platform::RecoveredFile> recoverInto(const std::string&) override { return {}; }

    static constexpr std::uint64_t most = 64U << 20U;

private:
    std::vector<platform::HistoryEntry> entries_;
    std::map<std::int64_t, std::string> scores_;
    std::uint64_t bytes_ = 0;
    std::int64_t last_ = 0;
};

} // namespace velorin

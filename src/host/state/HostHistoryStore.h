// The history of the score as files in the user's state folder.
#pragma once

#include "host/process/OnceLogger.h"
#include "host/process/Worker.h"
#include "host/state/DamagedPieces.h"
#include "host/state/HistoryReader.h"
#include "host/state/HistoryWriter.h"
#include "platform/HistoryStore.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace velorin::host {

/// Limits of the history, and the clock; tests set their own.
struct HistorySettings {
    std::uint64_t packBytes = 1024 * 1024;
    std::uint64_t mostBytes = 200 * 1024 * 1024;
    int mostDays = 30;
    std::function<std::int64_t()> nowUs; ///< since 1970; empty for the system's clock
};

/// A call writes its record before it returns; a thread syncs the file, and removes what is too
/// old when a pack has been added:
///
///     add         record in the pack -----> returns
///       thread                        sync the pack and the folder ... remove old packs
///
/// While the disk takes nothing, the latest records wait in memory. Each `add` tries them again.
class HostHistoryStore final : public platform::HistoryStore {
public:
    /// `folder` is that of the history; snapshots of older versions are recovered from the one
    /// above. Nothing is created before the first `add`. With an empty path nothing is written.
    /// `notices`, which outlives this, may be null.
    explicit HostHistoryStore(std::filesystem::path folder, platform::Notices* notices = nullptr,
                              HistorySettings settings = {});
    /// Ends the run, if `end` was not called, and waits until what was written is on the disk.
    ~HostHistoryStore() override;
    HostHistoryStore(const HostHistoryStore&) = delete;
    HostHistoryStore& operator=(const HostHistoryStore&) = delete;

    std::int64_t add(const platform::HistoryEntry& entry, const std::string& score) override;
    void setCurrent(std::int64_t state) override;
    std::vector<platform::HistoryEntry> entries() override;
    std::optional<std::string> score(std::int64_t state) override;
    void clear() override;
    std::uint64_t bytesUsed() override; ///< the sizes of all packs
    std::uint64_t mostBytes() override { return settings_.mostBytes; }
    void end(bool isSafe) override;
    std::vector<platform::RecoveredFile> recoverInto(const std::string& folder) override;

    /// How many records wait in memory at most.
    static constexpr std::size_t mostWaiting = 100;

private:
    std::int64_t nextId();
    void write(HistoryRecord record);
    [[nodiscard]] bool append(const HistoryRecord& record);
    void syncLater();
    void sync();
    void removeExpired();
    void removePacks(const std::set<std::string>& packs);
    [[nodiscard]] std::set<std::string> packsToClear() const;
    [[nodiscard]] std::optional<HistoryRecord> recordOf(std::int64_t state);

    std::filesystem::path folder_;
    HistorySettings settings_;
    std::string run_;
    OnceLogger cannotKeep_;
    OnceLogger cannotSync_;
    OnceLogger cannotRecover_;
    DamagedPieces damagedPieces_;
    HistoryReader reader_;
    HistoryWriter writer_;
    std::deque<HistoryRecord> waiting_; ///< not written yet, the oldest first
    std::int64_t lastId_ = 0;
    std::int64_t current_ = 0; ///< the state
    bool hasEnded_ = false;

    std::mutex mutex_; ///< guards what follows, for the thread, and each removal of a pack
    Unsynced unsynced_;
    bool isSyncPosted_ = false;
    std::string currentPack_;        ///< has the current state
    int firstOwnPack_ = 0;           ///< the packs of this run from here on stay
    std::set<std::string> toRemove_; ///< after the next sync

    Worker worker_; ///< last, so that it ends first
};

} // namespace velorin::host

// Writes the files of this run of the program: its marker and its packs.
#pragma once

#include "host/disk/DurableFile.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace velorin::host {

/// What a thread has to sync. The files stay open until it is done.
struct Unsynced {
    std::vector<std::shared_ptr<Descriptor>> files;
    bool hasNewNames = false; ///< the folder needs a sync too
};

/// A pack ends when it is full and when the day changes, so that old ones can be removed whole.
class HistoryWriter {
public:
    /// Nothing is created before the first record. With an empty folder every write fails.
    HistoryWriter(std::filesystem::path folder, std::string run, std::uint64_t packBytes);

    /// Appends a record, in one write. On return it survives the end of the process. False if
    /// that failed: nothing of the record stays, and the next call tries again. `momentUs` is the
    /// time of the record, in microseconds since 1970.
    [[nodiscard]] bool append(const std::string& record, std::int64_t momentUs);

    /// The next record begins a new pack.
    void endPack() { pack_.reset(); }

    /// The run ends: removes the marker, or renames it if its current state needs recovery.
    void end(bool isSafe);

    /// What was written since the last call.
    [[nodiscard]] Unsynced takeUnsynced();

    [[nodiscard]] int packNumber() const { return number_; } ///< of the last pack; 0 for none
    [[nodiscard]] std::uint64_t packSize() const { return bytes_; }

private:
    [[nodiscard]] bool hasMarker();
    [[nodiscard]] bool hasPack(std::uint64_t recordBytes, std::int64_t day);
    void drop(); ///< what a failed write has left

    std::filesystem::path folder_;
    std::string run_;
    std::uint64_t packBytes_;
    Descriptor marker_;
    std::shared_ptr<Descriptor> pack_; ///< null if the next record begins a new one
    int number_ = 0;
    std::uint64_t bytes_ = 0; ///< in the pack
    std::int64_t day_ = 0;    ///< of the pack
    Unsynced unsynced_;
};

} // namespace velorin::host

// Writes recovered scores into the user's folder of songs, and keeps only the latest of them.
#pragma once

#include "platform/HistoryStore.h"

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

/// A score that a run has left.
struct LeftScore {
    std::string text;
    std::time_t changed = 0;   ///< the modification time of its new file
    bool endedCleanly = false; ///< the run did not crash; its score was not saved
};

class RecoveryFolder {
public:
    explicit RecoveryFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Writes the score to a file of its own and logs it on standard error. On return a power cut
    /// cannot undo it. False if nothing can be written there.
    [[nodiscard]] bool add(const LeftScore& score);

    /// Removes the oldest recovered scores beyond the limit, none of them new or changed by the
    /// user. Returns the new ones. Call it once, at the end.
    [[nodiscard]] std::vector<platform::RecoveredFile> finish();

    [[nodiscard]] const std::filesystem::path& path() const { return folder_; }

    /// How many recovered files are kept.
    static constexpr std::size_t mostRecovered = 20;

private:
    [[nodiscard]] std::string write(const LeftScore& score) const;
    void removeOldest() const;

    std::filesystem::path folder_;
    std::vector<platform::RecoveredFile> added_;
};

} // namespace velorin::host

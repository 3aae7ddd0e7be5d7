// Scores that the version before the history kept: a snapshot for each run, in the state folder.
#pragma once

#include "host/process/OnceLogger.h"
#include "host/state/RecoveryFolder.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velorin::host {

/// Recovers the latest snapshot of each run that has ended, and removes its files. What cannot be
/// written to the target stays, and is logged.
void recoverOldSnapshots(const std::filesystem::path& stateFolder, RecoveryFolder& target,
                         OnceLogger& cannotRecover);

/// A snapshot; of several that are whole the highest number counts.
struct OldSnapshot {
    std::string text;
    std::uint64_t number = 0;
};

/// No value for a file that was cut short or damaged.
[[nodiscard]] std::optional<OldSnapshot> decodeOldSnapshot(std::string_view bytes);

} // namespace velorin::host

// The names of recovered scores, and which of them are removed when there are too many.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace velorin::host {

/// "recovered 2026-11-20 10-45-01.sng", in local time; a second file of the same second gets a
/// counter, "recovered 2026-11-20 10-45-01 (2).sng".
[[nodiscard]] std::string recoveredName(std::time_t moment, int count = 1);

/// A file among the user's scores.
struct ScoreFile {
    std::string name;
    std::time_t changed = 0;       ///< when its content was written
    std::int64_t appearedAtNs = 0; ///< when it got this name
};

/// True if `recoveredName` made the name and the file has not been written to since: the name is
/// the time of its last change. All other files are the user's.
[[nodiscard]] bool isUntouchedRecovery(const ScoreFile& file);

/// The names of the untouched recoveries among `files`, without the `most` that appeared last.
[[nodiscard]] std::vector<std::string> oldestUntouched(std::vector<ScoreFile> files,
                                                       std::size_t most);

} // namespace velorin::host

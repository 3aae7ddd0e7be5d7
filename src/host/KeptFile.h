// The form of a kept text on the disk, and the names of files that it comes back under.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::host {

/// A text as it was kept: of several whole ones of a run, the one with the highest number counts.
struct KeptText {
    std::string text;
    std::uint64_t number = 0;
};

/// The bytes of a kept file: the text, and a last line that tells its number and its check sum.
[[nodiscard]] std::string sealed(const KeptText& kept);

/// The way back; no value for a file that was cut short or damaged.
[[nodiscard]] std::optional<KeptText> unsealed(std::string_view bytes);

/// "WORD 2026-11-20 10-45-01", in local time; a second file of the same second gets a counter,
/// "WORD 2026-11-20 10-45-01 (2)".
[[nodiscard]] std::string nameOfMoment(const std::string& word, std::time_t moment, int count);

/// "recovered 2026-11-20 10-45-01.sng", in local time; from the second of a moment on with a count,
/// "recovered 2026-11-20 10-45-01 (2).sng".
[[nodiscard]] std::string recoveredName(std::time_t moment, int count = 1);

/// A file among the user's scores.
struct ScoreFile {
    std::string name;
    std::time_t changed = 0;       ///< when its content was written
    std::int64_t appearedAtNs = 0; ///< when it came under this name
};

/// Whether `recoveredName` made the name and nobody has written to the file since: the name is the
/// moment of its last change. All others are the user's.
[[nodiscard]] bool isUntouchedRecovery(const ScoreFile& file);

/// The names of the untouched recoveries among `files`, without the `most` that appeared last.
[[nodiscard]] std::vector<std::string> recoveredBeyond(std::vector<ScoreFile> files,
                                                       std::size_t most);

} // namespace velorin::host

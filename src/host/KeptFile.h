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

/// "recovered 2026-11-20 10-45-01.sng", in local time; from the second of a moment on with a count,
/// "recovered 2026-11-20 10-45-01 (2).sng".
[[nodiscard]] std::string recoveredName(std::time_t moment, int count = 1);

/// Those of `names` that `recoveredName` makes, without the `most` latest.
[[nodiscard]] std::vector<std::string> recoveredBeyond(std::vector<std::string> names,
                                                       std::size_t most);

} // namespace velorin::host

// The unit of lengths and positions in command strings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velorin::host {

enum class TimeFormat { milliseconds, frames, samples };

/// The format of "set ALIAS time format WORD".
[[nodiscard]] std::optional<TimeFormat> timeFormatOf(const std::string& word);
[[nodiscard]] std::string nameOf(TimeFormat format);

// A pair of conversions between counts of a format and units of a device. Both round to the nearest
// and are monotonic, so the end of a file is at its length in every format.
[[nodiscard]] std::int64_t toFormat(std::int64_t units, TimeFormat format,
                                    std::int64_t unitsPerSecond);
[[nodiscard]] std::int64_t fromFormat(std::int64_t count, TimeFormat format,
                                      std::int64_t unitsPerSecond);

} // namespace velorin::host

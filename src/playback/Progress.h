// How far a song or a file has played, as a share and as a caption.
#pragma once

#include <cstdint>
#include <string>

namespace velorin {

/// The share of a WAV or MID file, rounded to single precision; not a number if `length` is 0.
[[nodiscard]] inline double playedShare(double position, double length) {
    return static_cast<double>(static_cast<float>(position / length));
}

/// "42 %", computed in double precision; halves go to even.
///
/// Rule: a share of 0 has no digits, only the blank and the sign. Held by the unit test
/// ProgressCaption.IsAPercentageWithoutADigitForNothing.
[[nodiscard]] std::string percentCaption(double share);

/// At least two digits: "07".
[[nodiscard]] std::string twoDigits(std::int64_t number);

/// "42.50%", of `done` in `total`: at least two digits before the point and two after it.
[[nodiscard]] std::string exactPercent(std::int64_t done, std::int64_t total);

} // namespace velorin

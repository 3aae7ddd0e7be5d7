// How far a song or a file has played, as a share and as a caption.
#pragma once

#include <cstdint>
#include <string>

namespace velorin {

/// The share of a WAV or MID file, cut to single precision; no number at all where `length` is 0.
[[nodiscard]] inline double playedShare(double position, double length) {
    return static_cast<double>(static_cast<float>(position / length));
}

/// "42 %", computed in double precision; halves go to even, and a share of nothing has no digits: "
/// %".
[[nodiscard]] std::string percentCaption(double share);

/// At least two digits: "07".
[[nodiscard]] std::string twoDigits(std::int64_t number);

/// "42.50%", of `done` in `total`: two digits at least before the point and two behind it.
[[nodiscard]] std::string exactPercent(std::int64_t done, std::int64_t total);

} // namespace velorin

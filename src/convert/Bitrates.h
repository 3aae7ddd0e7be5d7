// The bitrates that MP3 files have.
#pragma once

#include <span>
#include <string>

namespace velorin::convert {

/// In kilobits per second, the lowest first, for sound of `rateHz` samples per second. Low ones are
/// there at any rate: the encoder then takes a lower sample rate by itself.
[[nodiscard]] std::span<const int> bitratesAt(int rateHz);

/// The one that is taken if none is asked for: 192, or the highest that the sample rate allows.
[[nodiscard]] int usualBitrateAt(int rateHz);

/// Why an MP3 file of that sample rate cannot have the bitrate; empty if it can.
[[nodiscard]] std::string whyNotAt(int rateHz, int bitrate);

} // namespace velorin::convert

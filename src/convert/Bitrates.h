// The bitrates of MP3 files.
#pragma once

#include "platform/Result.h"

#include <span>

namespace velorin::convert {

/// In kilobits per second, the lowest first, for sound of `rateHz` samples per second. Low ones are
/// valid at any rate: the encoder then lowers the sample rate itself.
[[nodiscard]] std::span<const int> bitratesAt(int rateHz);

/// 192, or the highest that the sample rate allows.
[[nodiscard]] int defaultBitrateAt(int rateHz);

/// Fails if an MP3 file of this sample rate cannot have this bitrate.
platform::Result<void> checkBitrate(int rateHz, int bitrate);

} // namespace velorin::convert

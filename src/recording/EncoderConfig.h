// The configuration record of the MP3 encoder library.
#pragma once

#include "platform/Encoder.h"

#include <cstdint>
#include <string>

namespace velorin {

struct EncoderChoice {
    std::int32_t sampleRate = 0; ///< per second
    std::int32_t mode = 0;       ///< 1 joint stereo, 3 mono
    std::int32_t bitrate = 0;    ///< kilobits per second
    std::int32_t preset = 0;     ///< quality, the library's number
};

/// The record of a choice; the bitrate is always constant.
[[nodiscard]] platform::ConfigRecord encoderConfig(const EncoderChoice& choice);

/// What a result code of the library means; empty for an unknown one.
[[nodiscard]] std::string encoderErrorText(std::uint32_t code);

} // namespace velorin

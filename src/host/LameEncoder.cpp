// An encoder that has no library yet: every call says so.
#include "host/LameEncoder.h"

namespace velorin::host {

bool LameEncoder::isPresent(const std::string&) {
    return false;
}

std::uint32_t LameEncoder::beInitStream(const platform::ConfigRecord&, std::uint32_t&,
                                        std::uint32_t&, platform::EncoderStream&) {
    return platform::encoderNoMoreHandles;
}

std::uint32_t LameEncoder::beEncodeChunk(platform::EncoderStream, std::uint32_t,
                                         const std::int16_t*, std::uint8_t*, std::uint32_t& bytes) {
    bytes = 0;
    return platform::encoderInvalidHandle;
}

std::uint32_t LameEncoder::beDeinitStream(platform::EncoderStream, std::uint8_t*,
                                          std::uint32_t& bytes) {
    bytes = 0;
    return platform::encoderInvalidHandle;
}

std::uint32_t LameEncoder::beCloseStream(platform::EncoderStream) {
    return platform::encoderInvalidHandle;
}

} // namespace velorin::host

// Writes the record's fields at their offsets.
#include "recording/EncoderConfig.h"

#include <array>

namespace velorin {

namespace {

void put(platform::ConfigRecord& record, std::size_t at, std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    for (std::size_t i = 0; i < 4; ++i)
        record[at + i] = static_cast<std::uint8_t>(bits >> (8 * i) & 0xFF);
}

} // namespace

// Every field that is not set here is 0: resampling (the encoder decides), highest bitrate,
// psychoacoustic model, emphasis, the frame's other bits, and all about variable bitrates.
platform::ConfigRecord encoderConfig(const EncoderChoice& choice) {
    platform::ConfigRecord record{};
    put(record, 0, 256); // the library's own form of the record
    put(record, 4, 1);   // its version
    put(record, 8, 331); // its size
    put(record, 12, choice.sampleRate);
    put(record, 20, choice.mode);
    put(record, 24, choice.bitrate);
    put(record, 32, choice.preset);
    put(record, 36, 1);  // MPEG version
    put(record, 60, -1); // first generation
    put(record, 80, -1); // no variable bitrate
    return record;
}

std::string encoderErrorText(std::uint32_t code) {
    constexpr std::array<const char*, 6> texts{
        "No Error",        "Invalid format", "Invalid format parameters",
        "No more handles", "Invalid handle", "Buffer too small"};
    return code < texts.size() ? texts[code] : "";
}

} // namespace velorin

// The bits of the header as a text of "0" and "1", with the lowest bit of each byte first. So a
// number read from a field has its bits in reverse order:
//
//     character   1..8    9..16   17 18 19 20 21 22 23 24   25..30  31 32
//                 sync                  rate  bitrate               mode
#include "recording/Mp3Header.h"

#include <string_view>

namespace velorin {

namespace {

// The bitrates of MPEG-1 Layer III in the order of the reversed index.
constexpr std::array<int, 16> bitrates{0,  112, 56, 224, 40, 160, 80, 320,
                                       32, 128, 64, 256, 48, 192, 96, 0};

std::string bitText(const std::array<std::uint8_t, 4>& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        for (int bit = 0; bit < 8; ++bit)
            text += (byte >> bit & 1) != 0 ? '1' : '0';
    return text;
}

/// The number in characters `first` to `last`, counted from 1; the first is the most significant.
std::size_t field(std::string_view bits, std::size_t first, std::size_t last) {
    std::size_t value = 0;
    for (std::size_t at = first; at <= last; ++at)
        value = value * 2 + (bits[at - 1] == '1' ? 1 : 0);
    return value;
}

} // namespace

Mp3Header readMp3Header(const std::array<std::uint8_t, 4>& bytes) {
    const std::string bits = bitText(bytes);
    Mp3Header header;
    constexpr std::array<const char*, 3> rates{"44", "32", "48"};
    const std::size_t rate = field(bits, 19, 20);
    if (rate < rates.size())
        header.khz = rates[rate];
    header.mode = field(bits, 31, 32) == 3 ? "mono" : "stereo";
    header.bitrate = std::to_string(bitrates[field(bits, 21, 24)]);
    return header;
}

} // namespace velorin

// Keeps invalid MIDI data from every device.
#include "host/midi/ShortMessage.h"

namespace velorin::host {

namespace {

// The length of a message by its status; 0 for a status that no short message has.
std::size_t lengthOf(unsigned status) {
    if (status < 0x80)
        return 0;
    if (status < 0xF0)
        return (status & 0xE0) == 0xC0 ? 2
                                       : 3; // program change and channel pressure have one datum
    switch (status) {
    case 0xF1:
    case 0xF3:
        return 2;
    case 0xF2:
        return 3;
    case 0xF6:
    case 0xF8:
    case 0xFA:
    case 0xFB:
    case 0xFC:
    case 0xFE:
    case 0xFF:
        return 1;
    default:
        return 0;
    }
}

} // namespace

ShortMessage unpack(std::uint32_t word) {
    ShortMessage message;
    const std::size_t length = lengthOf(word & 0xFF);
    for (std::size_t i = 0; i < length; ++i) {
        message.byte[i] = static_cast<std::uint8_t>(word >> (8 * i));
        if (i > 0 && message.byte[i] > 127)
            return {};
    }
    message.count = length;
    return message;
}

} // namespace velorin::host

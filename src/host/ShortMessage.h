// Short MIDI messages: a packed word taken apart into the bytes that a device may be given.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velorin::host {

/// One message of one to three bytes; a count of 0 stands for what is no MIDI data.
struct ShortMessage {
    std::array<std::uint8_t, 3> byte{};
    std::size_t count = 0;

    [[nodiscard]] int kind() const { return byte[0] & 0xF0; }
    [[nodiscard]] int channel() const { return byte[0] & 0x0F; }
};

/// Takes a packed word apart: status in bits 0..7, data in bits 8..15 and 16..23. A status below
/// 0x80, one that begins or ends an exclusive message or has no meaning, and a data byte above 127
/// give an empty message. Only the bytes that the status has are looked at.
[[nodiscard]] ShortMessage unpack(std::uint32_t word);

} // namespace velorin::host

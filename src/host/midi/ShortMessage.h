// Short MIDI messages: unpacks a word into bytes that a device accepts.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velorin::host {

/// One message of one to three bytes; a count of 0 means invalid MIDI data.
struct ShortMessage {
    std::array<std::uint8_t, 3> byte{};
    std::size_t count = 0;

    [[nodiscard]] int kind() const { return byte[0] & 0xF0; }
    [[nodiscard]] int channel() const { return byte[0] & 0x0F; }
};

/// Unpacks a word: status in bits 0..7, data in bits 8..15 and 16..23. The message is empty for a
/// status below 0x80, for one that begins or ends an exclusive message or has no meaning, and for a
/// data byte above 127. Bytes that the status does not need are ignored.
[[nodiscard]] ShortMessage unpack(std::uint32_t word);

} // namespace velorin::host

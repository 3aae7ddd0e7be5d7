// The content of a Standard MIDI File: tracks of events at ticks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velorin::midifile {

/// A channel message, a change of tempo, or the end of a drum's cell.
struct Event {
    std::int64_t tick = 0;     ///< from the start of the track
    std::uint32_t tempoUs = 0; ///< the new length of a quarter note; 0: no change
    /// A status in [0x80, 0xEF] and data bytes in [0, 127]. At the end of a cell this is a note off
    /// that must not be sent.
    std::array<std::uint8_t, 3> bytes{};
    std::size_t count = 0; ///< of bytes to send: 2 or 3; 0 if the event is no message

    [[nodiscard]] int kind() const { return bytes[0] & 0xF0; }
    [[nodiscard]] int channel() const { return bytes[0] & 0x0F; }
    [[nodiscard]] bool isCellEnd() const { return count == 0 && tempoUs == 0; }
};

constexpr int ownDataKind = 0x7F; ///< of a meta event with data of one program

/// The content of such an event in our own files: here ends the cell of the track's last drum with
/// this key [0, 127]. Its note off comes later, since a drum rings until its next stroke.
[[nodiscard]] inline std::string drumCellEnd(int key) {
    return std::string("\x7DVelorin") + static_cast<char>(key);
}

/// A time signature.
struct Meter {
    std::int64_t tick = 0;
    int beats = 4; ///< [1, 255]
    int unit = 4;  ///< 1, 2, 4 and so on up to 64: the note that is one beat
};

struct Track {
    std::vector<Event> events; ///< ticks never decrease
    std::vector<Meter> meters;
    std::int64_t endTick = 0;   ///< not before the last event
    std::int64_t exclusive = 0; ///< number of exclusive messages, which are left out
    bool isWhole = true;        ///< false: the track is cut or damaged, and its rest is missing
};

/// One song, or with format 2 several patterns.
struct MidiData {
    int format = 0;
    std::uint16_t division = 0; ///< not 0; see TickLength
    std::vector<Track> tracks;  ///< at least one

    [[nodiscard]] bool isWhole() const {
        for (const Track& track : tracks) {
            if (!track.isWhole)
                return false;
        }
        return true;
    }
};

} // namespace velorin::midifile

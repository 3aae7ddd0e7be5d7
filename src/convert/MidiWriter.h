// Writes Standard MIDI Files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::convert {

/// The events of one track. They may be added in any order; events of the same tick keep theirs.
class MidiTrack {
public:
    /// A whole message, status byte first. `tick` [0, 2^28).
    void add(std::int64_t tick, std::string_view message);

    /// A meta event; `kind` [0, 127].
    void addMeta(std::int64_t tick, int kind, std::string_view content);

    /// The bytes of the chunk. The track ends at `endTick`, or with its last event if that is
    /// later.
    [[nodiscard]] std::string chunk(std::int64_t endTick) const;

private:
    struct Event {
        std::int64_t tick = 0;
        std::string bytes;
    };

    std::vector<Event> events_;
};

/// Kinds of meta events.
namespace midiMeta {
constexpr int trackName = 0x03;
constexpr int instrumentName = 0x04;
constexpr int endOfTrack = 0x2F;
constexpr int tempo = 0x51; ///< three bytes: microseconds a quarter note
constexpr int measure = 0x58;
constexpr int ownData = 0x7F; ///< begins with a manufacturer's number
} // namespace midiMeta

constexpr std::int64_t mostMidiTicks = (1 << 28) - 1; ///< between two events

/// `number` big-endian in `bytes` bytes.
[[nodiscard]] std::string bigEndian(std::uint32_t number, int bytes);

/// A file of format 1. `division` [1, 32767] is the ticks of a quarter note. All tracks end at
/// `endTick`.
[[nodiscard]] std::string midiFile(int division, const std::vector<MidiTrack>& tracks,
                                   std::int64_t endTick);

} // namespace velorin::convert

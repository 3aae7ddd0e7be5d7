// MIDI songs for tests of the import, note by note.
#pragma once

#include "importing/MidiImport.h"
#include "midifile/MidiData.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace velorin::importing::test {

constexpr int quarter = 480; ///< ticks; 0.5 s at the usual tempo
constexpr int sixteenth = quarter / 4;

/// A song with one track for each track number that is used.
class Song {
public:
    explicit Song(std::uint16_t division = quarter) { data_.division = division; }

    /// A note of channel [0, 15].
    Song& note(std::int64_t tick, int key, std::int64_t length, int channel = 0,
               std::size_t track = 0, int velocity = 127) {
        message(tick, 0x90 | channel, key, velocity, track);
        message(tick + length, 0x80 | channel, key, 0, track);
        return *this;
    }

    Song& program(std::int64_t tick, int program, int channel = 0, std::size_t track = 0) {
        return message(tick, 0xC0 | channel, program, 0, track);
    }

    Song& control(std::int64_t tick, int number, int value, int channel = 0) {
        return message(tick, 0xB0 | channel, number, value, 0);
    }

    Song& tempo(std::int64_t tick, double beatsPerMinute) {
        add(0, {tick, static_cast<std::uint32_t>(60e6 / beatsPerMinute + 0.5), {}, 0});
        return *this;
    }

    Song& meter(std::int64_t tick, int beats, int unit) {
        use(0).meters.push_back({tick, beats, unit});
        return *this;
    }

    Song& message(std::int64_t tick, int status, int one, int two, std::size_t track = 0) {
        add(track, {tick,
                    0,
                    {static_cast<std::uint8_t>(status), static_cast<std::uint8_t>(one),
                     static_cast<std::uint8_t>(two)},
                    (status & 0xE0) == 0xC0 ? 2U : 3U});
        return *this;
    }

    [[nodiscard]] midifile::MidiData data() const {
        midifile::MidiData sorted = data_;
        for (midifile::Track& track : sorted.tracks)
            std::stable_sort(track.events.begin(), track.events.end(), isEarlier);
        return sorted;
    }

    [[nodiscard]] platform::Result<Import> tryImport(const ImportLimits& limits = {}) const {
        const midifile::MidiData song = data();
        return importMidi({&song, 1}, limits);
    }

    [[nodiscard]] Import import() const { return *tryImport(); }

private:
    // At one tick, tempos and controls come first, then note offs, then note ons.
    static bool isEarlier(const midifile::Event& a, const midifile::Event& b) {
        const auto rank = [](const midifile::Event& event) {
            return event.kind() == 0x90 ? 2 : event.kind() == 0x80 ? 1 : 0;
        };
        return a.tick != b.tick ? a.tick < b.tick : rank(a) < rank(b);
    }

    midifile::Track& use(std::size_t track) {
        if (track >= data_.tracks.size())
            data_.tracks.resize(track + 1);
        return data_.tracks[track];
    }

    void add(std::size_t track, const midifile::Event& event) {
        use(track).events.push_back(event);
        use(track).endTick = std::max(use(track).endTick, event.tick);
    }

    midifile::MidiData data_{1, quarter, std::vector<midifile::Track>(1)};
};

/// Columns [0, count) of a row: a key where a note starts, "=" where it goes on, "." for a rest,
/// and
/// "*" after a key with a chord mark.
[[nodiscard]] inline std::string rowText(const Score& score, int row, int count) {
    std::string text;
    for (int column = 0; column < count; ++column) {
        const int cell = score.NoteArray.at(row, column);
        const bool isMarked = isMusicRow(row) && score.PolyArray.at(row + 1, column + 1) == 1;
        text += column > 0 ? " " : "";
        if (isEmpty(cell))
            text += ".";
        else if (isHeld(cell))
            text += "=";
        else
            text += std::to_string(isMusicRow(row)
                                       ? PitchToKey(cell)
                                       : percussionKey(score.InstrumentArray.at(row, column))) +
                    (isMarked ? "*" : "");
    }
    return text;
}

} // namespace velorin::importing::test

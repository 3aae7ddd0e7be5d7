// The notes of a MIDI file, with their times.
#pragma once

#include "importing/Account.h"
#include "midifile/MidiData.h"
#include "midifile/TickTime.h"

#include <cstdint>
#include <vector>

namespace velorin::importing {

/// A note that sounds. Times are microseconds from the start of the file.
struct Note {
    double us = 0.0;
    double endUs = 0.0;  ///< the key is released; not before `us`
    double ringUs = 0.0; ///< the pedal is released; not before `endUs`
    std::uint16_t track = 0;
    std::uint8_t channel = 0; ///< [0, 15]
    std::uint8_t program = 0; ///< [0, 127]
    std::uint8_t key = 0;     ///< [0, 127]
    /// [1, 127]: the velocity that sounds as loud with the usual volume and expression.
    std::uint8_t loudness = 0;

    /// Notes with the same number belong together: a track and a channel.
    [[nodiscard]] int part() const { return track * 16 + channel; }
};

struct Music {
    midifile::TempoMap tempo;
    std::vector<midifile::Meter> meters; ///< in order
    std::vector<Note> notes;             ///< in the order of their starts
    LeftOut leftOut;
    /// Of a file that a score was written to: the wait before column 0, a measure of 1/16. 0 for
    /// any other file.
    double leadUs = 0.0;
    bool isWhole = true; ///< false: a track is damaged, and its rest is missing

    [[nodiscard]] double endUs() const; ///< the last note is released

    /// True if a score was written to the file: its columns and rows can be found again.
    [[nodiscard]] bool isOfScore() const { return leadUs > 0.0; }
};

/// The tracks of formats 0 and 1 play together, the patterns of format 2 one after the other. A
/// note that is never released lasts to the end.
[[nodiscard]] Music musicOf(const midifile::MidiData& data);

} // namespace velorin::importing

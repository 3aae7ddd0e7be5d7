// What became of the notes of a MIDI file.
#pragma once

#include <cstdint>
#include <vector>

namespace velorin::importing {

/// Every note that sounds is counted once: `kept()` plus `dropped()` is `notes`.
struct Account {
    std::int64_t notes = 0;

    // A kept note is exact or moved.
    std::int64_t exact = 0; ///< within `exactMs` of its time in the file
    std::int64_t moved = 0; ///< began in the nearest column, or beside it

    // Of the kept notes.
    std::int64_t shortened = 0; ///< end at least a column earlier than the nearest column
    std::int64_t merged = 0;    ///< sound with an equal note as one
    std::int64_t inMarks = 0;   ///< sound by the chord mark of another note
    std::int64_t continued = 0; ///< begin again in the next score

    // Of the dropped notes.
    std::int64_t crowded = 0;      ///< all eight rows had notes that begin in the same column
    std::int64_t tooFast = 0;      ///< repeated a note within a column
    std::int64_t unknownDrums = 0; ///< have no sound among the percussion sounds
    std::int64_t crowdedDrums = 0; ///< more than five drums in a column

    // Of the moved notes, after the change of speed.
    double medianMoveMs = 0.0;
    double largestMoveMs = 0.0;
    double largestMoveColumns = 0.0;

    [[nodiscard]] std::int64_t kept() const { return exact + moved; }
    [[nodiscard]] std::int64_t dropped() const {
        return crowded + tooFast + unknownDrums + crowdedDrums;
    }
};

constexpr double exactMs = 5.0; ///< less is not heard

/// What the file has beside notes, and what has no place in a score.
struct LeftOut {
    std::int64_t silent = 0;      ///< notes of a channel whose volume is 0; not among the notes
    std::int64_t bends = 0;       ///< pitch bends
    std::int64_t pressures = 0;   ///< aftertouch of keys and channels
    std::int64_t controllers = 0; ///< other than bank, volume, expression and pedal
    std::int64_t exclusive = 0;   ///< exclusive messages
};

} // namespace velorin::importing

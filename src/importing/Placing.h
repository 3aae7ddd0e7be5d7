// Notes on the grid: the column of each, before the rows are given out.
#pragma once

#include "importing/Music.h"
#include "importing/TimeGrid.h"

#include <cstdint>
#include <vector>

namespace velorin::importing {

/// What becomes of a note.
enum class Fate : std::uint8_t {
    waiting,     ///< for a row
    placed,      ///< has a row
    merged,      ///< sounds with the equal note `into`
    inMark,      ///< sounds by the chord mark of the note `into`
    crowded,     ///< dropped: no row
    tooFast,     ///< dropped: the same note began in the same column, but earlier
    unknownDrum, ///< dropped: no percussion sound is like it
    crowdedDrum, ///< dropped: five drums of the same column matter more
};

/// Columns count through the whole grid, as `TimeGrid` has them.
struct PlacedNote {
    int start = 0;
    int end = 1;       ///< after the last column; after `start`
    int wantedEnd = 1; ///< where the note ends in the file
    int ringEnd = 1;   ///< where its pedal is released; not before `wantedEnd`
    int part = 0;      ///< see Note
    std::uint32_t into = 0;
    float moveMs = 0.0F; ///< distance from its time in the file, at least 0
    float moveColumns = 0.0F;
    std::int16_t instrument = 0; ///< a program, or a percussion sound from 128 on
    std::uint8_t key = 0;
    std::uint8_t loudness = 0;
    std::int16_t row = -1;
    Fate fate = Fate::waiting;
    bool hasMark = false; ///< sounds with three more notes

    [[nodiscard]] bool isDrum() const;
};

/// The notes of the music, in the same order. Each begins in the nearest column; notes of a part
/// that follow each other within a column are moved apart if a column beside it is free. Equal
/// notes of a part are merged or dropped already.
[[nodiscard]] std::vector<PlacedNote> placedNotes(const Music& music, const TimeGrid& grid);

/// Merges waiting notes of all parts that have one key and instrument and begin in one column.
void mergeParts(std::vector<PlacedNote>& notes);

} // namespace velorin::importing

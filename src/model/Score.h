// The score: the grids that hold a composition, and the values that belong to the song as a whole.
#pragma once

#include "model/Cell.h"
#include "model/Grid.h"
#include "model/RowArray.h"

#include <cstdint>
#include <string>

namespace velorin {

struct RowOptions;

using NoteGrid = Grid<scoreRows, scoreColumns>;
using PolyGrid = Grid<musicRows + 1, scoreColumns>;

/// There is one for the whole run. It sends no notifications: code that changes cells also calls
/// the drawing.
struct Score {
    Score();

    NoteGrid NoteArray;       ///< row, column; Cell.h has the values
    NoteGrid InstrumentArray; ///< the instrument of the same cell; 0 under a rest

    /// Chord marks, 0 or 1.
    ///
    /// Rule: the mark of row r [0, 8), column c is entry (r + 1, c + 1). The tableau does not use
    /// the first entry of each dimension. Held by playback/chords.
    PolyGrid PolyArray;

    /// The instrument that the next note drawn in a row gets.
    RowArray<std::int16_t> RowInstrument{};

    std::int16_t Tempo = 100;    ///< beats of four columns per minute; 20..300 from the scroll bar
    std::int16_t CurrentRow = 0; ///< the selected row [0, 13)
    std::string CurrentFileName; ///< in lower case if it was opened; empty for a new score
    std::int16_t SelectStart = -1; ///< first selected column; -1 if nothing is selected
    std::int16_t SelectEnd = -1;   ///< last selected column, included
    std::int16_t StartColumn =
        0; ///< the position marker: where paste works and where a pause resumes
    std::int16_t LastColumn = 0; ///< the end of the song, as last computed by `FindLastColumn`

    /// Sets every note cell to -1 and every instrument to 0. No redraw.
    ///
    /// Rule: the chord marks stay. Held by score/clearing.
    void ClearNoteArrays();

    /// Sets every chord mark to 0, entries (1..8, 0..1000).
    ///
    /// Rule: lane 0, which no row uses, is not cleared. Held by score/clearing.
    void ClearPolies();

    void dropSelection(); ///< no column is selected afterwards; the marker stays

    /// Computes `LastColumn` from the rows that are not hidden. The source has two special cases.
    void FindLastColumn(const RowOptions& rows);
};

/// Turns a held cell into a start, so the rest of a note that lost its head becomes a note. Any
/// other cell stays; a place outside the grid is skipped.
void startIfHeld(NoteGrid& notes, int row, int column);

} // namespace velorin

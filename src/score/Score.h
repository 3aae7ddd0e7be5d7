// The score: the grids that hold a composition, and the values that belong to the song as a whole.
#pragma once

#include "score/Cell.h"
#include "score/Grid.h"

#include <array>
#include <cstdint>
#include <string>

namespace velorin {

class RowOptions;

using NoteGrid = Grid<scoreRows, scoreColumns>;
using PolyGrid = Grid<musicRows + 1, scoreColumns>;

/// Exists once, for the whole run. Whoever changes cells calls the drawing itself; there is no
/// notification.
struct Score {
    Score();

    NoteGrid NoteArray;       ///< row, column; values as Cell.h tells
    NoteGrid InstrumentArray; ///< the instrument of the same cell; 0 under a rest

    /// Chord marks, 0 or 1. Entry (r + 1, c + 1) belongs to row r [0, 8), column c; the first entry
    /// of each dimension is not used by the tableau.
    PolyGrid PolyArray;

    /// The instrument that the next note drawn in a row gets.
    std::array<std::int16_t, scoreRows> RowInstrument{};

    std::int16_t Tempo = 100;    ///< beats of four columns per minute; 20..300 from the scroll bar
    std::int16_t CurrentRow = 0; ///< the selected row [0, 13)
    std::string CurrentFileName; ///< lower-cased if it was opened; empty for a new score
    std::int16_t SelectStart = -1; ///< first selected column; -1 if nothing is selected
    std::int16_t SelectEnd = -1;   ///< last selected column, included
    std::int16_t StartColumn =
        0; ///< the position marker: where paste works and where a pause resumes
    std::int16_t LastColumn = 0; ///< the end of the song as `FindLastColumn` left it

    /// Every note cell to -1 and every instrument to 0. Chord marks stay. No redraw.
    void ClearNoteArrays();

    /// Every chord mark (1..8, 0..1000) to 0.
    void ClearPolies();

    void dropSelection(); ///< no column is selected; the marker stays

    /// Sets `LastColumn` over the rows that are not hidden; see the source for its two edges.
    void FindLastColumn(RowOptions& rows);
};

/// A held cell becomes a start: the rest of a note whose head is gone goes on as a note of its own.
/// Any other cell stays, and a place outside the grid is skipped.
void startIfHeld(NoteGrid& notes, int row, int column);

} // namespace velorin

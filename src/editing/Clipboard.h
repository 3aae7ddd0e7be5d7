// The clipboard of the block edits: three grids, not the desktop's clipboard.
#pragma once

#include "model/Score.h"

namespace velorin {

/// Rule: its cells are 0 until the first copy, and 0 is a note on the top line. So a paste before
/// any copy writes such notes, and so does a paste into a row that was hidden at the copy. Held by
/// editing/paste.
struct Clipboard {
    NoteGrid ClipNotes; ///< column 0 is the first copied column
    NoteGrid ClipInstruments;
    /// Rule: marks are copied by the numbers of the cells, but a cell's mark is one further in
    /// both. So a copy takes the mark of the column before the block and not that of its last
    /// column. Held by editing/copy_and_cut.
    PolyGrid ClipPoly;
    std::int16_t ClipLength = 0; ///< columns less 1

    /// Sets notes and instruments to zero; the marks stay.
    void clearNotes();

    /// Copies a cell of the score with its instrument. A place outside either grid is skipped.
    void take(const Score& score, int row, int column, int clipColumn);
    /// Copies the mark with the same numbers.
    void takeMark(const Score& score, int row, int column, int clipColumn);

    /// Lets a note that was cut off at the left edge start in the first column, rows [firstRow,
    /// lastRow].
    void startAtLeftEdge(int firstRow, int lastRow);

    /// Copies a cell with its instrument back to the score.
    void give(Score& score, int row, int column, int clipColumn) const;
    void giveMark(Score& score, int row, int column, int clipColumn) const;
};

} // namespace velorin

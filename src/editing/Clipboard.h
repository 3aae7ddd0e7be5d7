// The clipboard of the block edits: three grids of the program's own.
#pragma once

#include "score/Score.h"

namespace velorin {

/// Its cells are zero until the first copy, and zero is a note on the top line: what is pasted
/// before any copy, or into a row that was hidden when the block was copied, is such notes.
struct Clipboard {
    NoteGrid ClipNotes; ///< column 0 is the first copied column
    NoteGrid ClipInstruments;
    /// By the row and column numbers of the copied cells, where the score's own marks stand one
    /// further in both: a copy takes the mark of the column before it and leaves that of its last.
    PolyGrid ClipPoly;
    std::int16_t ClipLength = 0; ///< columns less 1

    /// Notes and instruments to zero; the marks stay.
    void clearNotes();

    /// Takes the notes and instruments of a score's cell. A place outside either grid is skipped.
    void take(const Score& score, int row, int column, int clipColumn);
    /// Takes the mark with the same numbers.
    void takeMark(const Score& score, int row, int column, int clipColumn);

    /// A note that was cut off at the left edge starts on the first column, in rows [first, last].
    void startAtLeftEdge(int firstRow, int lastRow);

    /// Gives the notes and instruments back to a cell of the score.
    void give(Score& score, int row, int column, int clipColumn) const;
    void giveMark(Score& score, int row, int column, int clipColumn) const;
};

} // namespace velorin

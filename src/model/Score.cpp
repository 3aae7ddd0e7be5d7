// Clears the grids and finds the end of the song.
#include "model/Score.h"

#include "model/RowOptions.h"

namespace velorin {

Score::Score() {
    ClearNoteArrays();
}

void Score::ClearNoteArrays() {
    NoteArray.fill(emptyCell);
    InstrumentArray.fill(0);
}

void Score::ClearPolies() {
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        for (int column = 0; column < PolyGrid::columns; ++column)
            PolyArray.write(lane, column, 0);
    }
}

void Score::dropSelection() {
    SelectStart = -1;
    SelectEnd = -1;
}

// Rule: `LastColumn` is one past the last used column, but a row's last column is compared with
// `LastColumn` itself. So a row that ends exactly there does not lengthen the song, and a score
// with notes only in column 0 ends at 0. Held by score/end_of_song.
void Score::FindLastColumn(const RowOptions& rows) {
    LastColumn = 0;
    for (int row = 0; row < scoreRows; ++row) {
        if (rows.TrackHide(row))
            continue;
        int column = lastGridColumn;
        while (column >= 0 && isEmpty(NoteArray.at(row, column)))
            --column;
        if (column > LastColumn)
            LastColumn = static_cast<std::int16_t>(column + 1);
    }
}

void startIfHeld(NoteGrid& notes, int row, int column) {
    const auto cell = notes.read(row, column);
    if (cell && isHeld(*cell))
        notes.write(row, column, static_cast<std::int16_t>(*cell - heldOffset));
}

} // namespace velorin

// Clearing the grids and finding the end of the song.
#include "score/Score.h"

#include "score/RowOptions.h"

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

// The comparison is with `LastColumn` before it is raised, so a row whose last cell lies exactly on
// the end found so far does not lengthen the song, and a score with notes in column 0 alone has the
// end 0.
void Score::FindLastColumn(RowOptions& rows) {
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

// What is on the sheet.
#include "windows/sheet/SheetContent.h"

#include "model/Score.h"

namespace velorin {

namespace {

template <class CellGrid, class IsCell>
bool hasCell(const CellGrid& grid, IsCell isCell) {
    for (int row = 0; row < CellGrid::rows; ++row)
        for (int column = 0; column < CellGrid::columns; ++column)
            if (isCell(grid.at(row, column)))
                return true;
    return false;
}

} // namespace

bool hasNotes(const Score& score) {
    return hasCell(score.NoteArray, [](int cell) { return !isEmpty(cell); });
}

bool hasMarks(const Score& score) {
    return hasCell(score.PolyArray, [](int mark) { return mark != 0; });
}

bool isEmptySheet(const Score& score) {
    return score.CurrentFileName.empty() && !hasNotes(score) && !hasMarks(score);
}

} // namespace velorin

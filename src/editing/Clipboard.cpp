// Copies cells to the clipboard and back.
#include "editing/Clipboard.h"

namespace velorin {

namespace {

template <class CellGrid>
void copyCell(const CellGrid& from, int row, int fromColumn, CellGrid& to, int toColumn) {
    if (const auto cell = from.read(row, fromColumn))
        to.write(row, toColumn, *cell);
}

} // namespace

void Clipboard::clearNotes() {
    ClipNotes.fill(0);
    ClipInstruments.fill(0);
}

void Clipboard::take(const Score& score, int row, int column, int clipColumn) {
    copyCell(score.NoteArray, row, column, ClipNotes, clipColumn);
    copyCell(score.InstrumentArray, row, column, ClipInstruments, clipColumn);
}

void Clipboard::takeMark(const Score& score, int row, int column, int clipColumn) {
    copyCell(score.PolyArray, row, column, ClipPoly, clipColumn);
}

void Clipboard::startAtLeftEdge(int firstRow, int lastRow) {
    for (int row = firstRow; row <= lastRow; ++row)
        startIfHeld(ClipNotes, row, 0);
}

void Clipboard::give(Score& score, int row, int column, int clipColumn) const {
    copyCell(ClipNotes, row, clipColumn, score.NoteArray, column);
    copyCell(ClipInstruments, row, clipColumn, score.InstrumentArray, column);
}

void Clipboard::giveMark(Score& score, int row, int column, int clipColumn) const {
    copyCell(ClipPoly, row, clipColumn, score.PolyArray, column);
}

} // namespace velorin

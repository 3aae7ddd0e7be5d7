// The steps of copy, cut, paste and insert.
//
//   cut of columns 8..10 from a note of columns 5..14:
//
//     column   5  6  7  8  9 10 11 12 13 14
//     before   o  -  -  -  -  -  -  -  -  -
//     after    o  -  -  o  -  -  -                the rest becomes a second note
#include "editing/BlockEdits.h"

#include "editing/OpenRows.h"
#include "platform/Text.h"
#include "studio/MainDesk.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <algorithm>

namespace velorin {

namespace {

void blank(Score& score, int row, int firstColumn, int lastColumn) {
    for (int column = std::max(firstColumn, 0); column <= std::min(lastColumn, lastGridColumn);
         ++column) {
        score.NoteArray.write(row, column, emptyCell);
        score.InstrumentArray.write(row, column, 0);
    }
}

/// Copies a cell to another column of its row. A source outside the grid is skipped.
void moveCell(Score& score, int row, int from, int to) {
    if (const auto note = score.NoteArray.read(row, from))
        score.NoteArray.write(row, to, *note);
    if (const auto instrument = score.InstrumentArray.read(row, from))
        score.InstrumentArray.write(row, to, *instrument);
}

} // namespace

void BlockEdits::CopySelectedArea() {
    const Score& score = studio_.score;
    if (const auto length = platform::toInt16(score.SelectEnd - score.SelectStart))
        clip.ClipLength = *length;
    clip.clearNotes();
    forOpenRows(studio_.setup.options(), [&](int row) {
        for (int column = score.SelectStart; column <= score.SelectEnd; ++column) {
            clip.take(score, row, column, column - score.SelectStart);
            clip.takeMark(score, row, column, column - score.SelectStart);
        }
    });
    clip.startAtLeftEdge(0, scoreRows - 1);
}

void BlockEdits::copyIt() {
    studio_.desk->focusMusicBox();
    if (studio_.score.SelectStart < 0)
        return;
    CopySelectedArea();
    studio_.score.dropSelection();
    redraw();
}

void BlockEdits::CutBut_Click() {
    studio_.desk->focusMusicBox();
    if (studio_.score.SelectStart < 0)
        return;
    CopySelectedArea();
    const int width = clip.ClipLength + 1;
    forOpenRows(studio_.setup.options(), [&](int row) { closeGap(row, width); });
    studio_.score.dropSelection();
    redraw();
}

// Rule: with a reversed selection the width is negative, so the shift repeats earlier columns up to
// the end, and there is no tail to blank. Held by the unit test
// Cut.OfASelectionTurnedRoundRepeatsTheColumnsBeforeIt.
void BlockEdits::closeGap(int row, int width) {
    Score& score = studio_.score;
    for (int column = score.SelectStart; column <= lastGridColumn - width; ++column)
        moveCell(score, row, column + width, column);
    startIfHeld(score.NoteArray, row, score.SelectStart);
    blank(score, row, lastGridColumn + 1 - width, lastGridColumn);
}

// Empty cells of the clipboard are written too: a paste replaces, it does not merge.
//
// Rule: the focus moves first, so with a percussion row selected row 0 becomes the current row.
// Held by editing/paste.
void BlockEdits::PasteBut_Click() {
    studio_.desk->focusMusicBox();
    Score& score = studio_.score;
    const int first = score.StartColumn;
    const int last = std::min(first + clip.ClipLength, lastGridColumn);
    forOpenRows(studio_.setup.options(), [&](int row) {
        for (int column = first; column <= last; ++column) {
            clip.give(score, row, column, column - first);
            clip.giveMark(score, row, column, column - first);
        }
        startIfHeld(score.NoteArray, row, last + 1);
    });
    redraw();
}

void BlockEdits::PasteIntoBut_Click() {
    studio_.desk->focusMusicBox();
    if (const auto width = platform::toInt16(clip.ClipLength + 1))
        InsertColumns(*width);
    PasteBut_Click();
}

void BlockEdits::InsertColumnBut_Click() {
    studio_.desk->focusMusicBox();
    InsertColumns(platform::readInt16(studio_.desk->Form2Text1()).value_or(0));
    redraw();
}

// Columns are moved from the right, so none is overwritten before it is read; the last ones are
// dropped. If the end of the gap does not fit 16 bits, it is 0, and nothing moves.
//
// Rule: also with n = 0, a held cell at the marker becomes a start. Held by editing/insert.
void BlockEdits::InsertColumns(std::int16_t n) {
    Score& score = studio_.score;
    const int end = platform::toInt16(score.StartColumn + n).value_or(0);
    forOpenRows(studio_.setup.options(), [&](int row) {
        for (int column = lastGridColumn; column >= std::max(end, 0); --column)
            moveCell(score, row, column - n, column);
        blank(score, row, score.StartColumn, end - 1);
        startIfHeld(score.NoteArray, row, end);
    });
}

void BlockEdits::redraw() {
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
}

} // namespace velorin

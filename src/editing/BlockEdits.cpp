// The steps of copy, cut, paste and insert.
//
//   cut of columns 8..10 from a note of columns 5..14:
//
//     column   5  6  7  8  9 10 11 12 13 14
//     before   o  -  -  -  -  -  -  -  -  -
//     after    o  -  -  o  -  -  -                the rest becomes a note of its own
#include "editing/BlockEdits.h"

#include "editing/EditingDesk.h"
#include "editing/OpenRows.h"
#include "platform/Text.h"
#include "score/ScoreDesk.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

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

/// Copies one cell to another of its row. A cell that does not exist gives nothing.
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
    forOpenRows(studio_.setup, [&](int row) {
        for (int column = score.SelectStart; column <= score.SelectEnd; ++column) {
            clip.take(score, row, column, column - score.SelectStart);
            clip.takeMark(score, row, column, column - score.SelectStart);
        }
    });
    clip.startAtLeftEdge(0, scoreRows - 1);
}

void BlockEdits::copyIt() {
    scoreDesk_.focusMusicBox();
    if (studio_.score.SelectStart < 0)
        return;
    CopySelectedArea();
    studio_.score.dropSelection();
    redraw();
}

void BlockEdits::CutBut_Click() {
    scoreDesk_.focusMusicBox();
    if (studio_.score.SelectStart < 0)
        return;
    CopySelectedArea();
    const int width = clip.ClipLength + 1;
    forOpenRows(studio_.setup, [&](int row) { closeGap(row, width); });
    studio_.score.dropSelection();
    redraw();
}

// With a selection that is turned round the width is negative: the shift then repeats earlier
// columns up to the end, and there is no tail to blank.
void BlockEdits::closeGap(int row, int width) {
    Score& score = studio_.score;
    for (int column = score.SelectStart; column <= lastGridColumn - width; ++column)
        moveCell(score, row, column + width, column);
    startIfHeld(score.NoteArray, row, score.SelectStart);
    blank(score, row, lastGridColumn + 1 - width, lastGridColumn);
}

// Empty cells of the clipboard are written too: the paste replaces, it does not mix.
void BlockEdits::PasteBut_Click() {
    scoreDesk_.focusMusicBox();
    Score& score = studio_.score;
    const int first = score.StartColumn;
    const int last = std::min(first + clip.ClipLength, lastGridColumn);
    forOpenRows(studio_.setup, [&](int row) {
        for (int column = first; column <= last; ++column) {
            clip.give(score, row, column, column - first);
            clip.giveMark(score, row, column, column - first);
        }
        startIfHeld(score.NoteArray, row, last + 1);
    });
    redraw();
}

void BlockEdits::PasteIntoBut_Click() {
    scoreDesk_.focusMusicBox();
    if (const auto width = platform::toInt16(clip.ClipLength + 1))
        InsertColumns(*width);
    PasteBut_Click();
}

void BlockEdits::InsertColumnBut_Click() {
    scoreDesk_.focusMusicBox();
    InsertColumns(platform::readInt16(desk_.Form2Text1()).value_or(0));
    redraw();
}

// Reading from the back keeps the source intact; the last columns fall off the end. A sum that does
// not fit leaves the end of the gap at 0: nothing moves then.
void BlockEdits::InsertColumns(std::int16_t n) {
    Score& score = studio_.score;
    const int end = platform::toInt16(score.StartColumn + n).value_or(0);
    forOpenRows(studio_.setup, [&](int row) {
        for (int column = lastGridColumn; column >= std::max(end, 0); --column)
            moveCell(score, row, column - n, column);
        blank(score, row, score.StartColumn, end - 1);
        startIfHeld(score.NoteArray, row, end);
    });
}

void BlockEdits::redraw() {
    scoreDesk_.DrawNoteArray();
    scoreDesk_.DrawBeatArray();
}

} // namespace velorin

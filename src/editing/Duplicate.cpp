// The steps of Duplicate.
//
//   Beats 31, Repeat 32, Notes 60:          Beats 12, Repeat 12, Notes 24:
//
//   |pattern 0..31 |copy 32..63 |           |pattern 0..16|
//                                                 |copy 12..28|
//                                                       |copy 24..40|
#include "editing/Duplicate.h"

#include "editing/BlockEdits.h"
#include "editing/EditingDesk.h"
#include "editing/OpenRows.h"
#include "platform/Text.h"
#include "score/ScoreCommands.h"
#include "score/ScoreDesk.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr std::int16_t shortestPatternEnd = 16;

std::int16_t numberIn(const std::string& text) {
    return platform::readInt16(text).value_or(0);
}

} // namespace

void Duplicate::CopyNotes(int firstRow, int lastRow) {
    Command6_Click();

    // There is no end of a selection here, so this copy only zeroes the clipboard.
    Score& score = studio_.score;
    score.SelectStart = 0;
    edits_.CopySelectedArea();
    score.SelectStart = 0;

    score.SelectEnd = std::max(numberIn(desk_.Text5()), shortestPatternEnd);
    edits_.clip.ClipLength = static_cast<std::int16_t>(score.SelectEnd - score.SelectStart);
    takePattern(firstRow, lastRow);
    studio_.score.dropSelection();

    const bool repeats = layCopies(firstRow, lastRow);
    redraw();
    score.StartColumn = 0;
    if (!repeats)
        hintAtRepeat();
}

// The clear in the middle takes every row, so a row that is hidden loses its notes here.
void Duplicate::Command6_Click() {
    Clipboard& clip = edits_.clip;
    const Score& score = studio_.score;
    if (const auto beats = platform::readInt16(desk_.Text5()))
        clip.ClipLength = *beats;
    clip.clearNotes();
    forOpenRows(studio_.setup, [&](int row) {
        for (int column = 0; column <= std::min<int>(clip.ClipLength, lastGridColumn); ++column) {
            clip.take(score, row, column, column);
            clip.takeMark(score, row, column, column);
        }
    });
    clip.startAtLeftEdge(0, scoreRows - 1);
    studio_.score.dropSelection();
    commands_.Command4_Click();
    edits_.PasteBut_Click();
    redraw();
}

void Duplicate::takePattern(int firstRow, int lastRow) {
    Clipboard& clip = edits_.clip;
    const Score& score = studio_.score;
    clip.clearNotes();
    forOpenRows(studio_.setup, firstRow, lastRow, [&](int row) {
        for (int column = score.SelectStart; column <= score.SelectEnd; ++column)
            clip.take(score, row, column, column - score.SelectStart);
    });
    clip.startAtLeftEdge(firstRow, lastRow);
}

void Duplicate::DuplicateRepeat(int firstRow, int lastRow) {
    if (!layCopies(firstRow, lastRow))
        hintAtRepeat();
}

// The marker itself walks. It may not leave 16 bits, and a step of 0 would never get it anywhere:
// either ends the walk. A negative step runs down, so with a positive Notes it lays no copy.
bool Duplicate::layCopies(int firstRow, int lastRow) {
    std::int16_t& marker = studio_.score.StartColumn;
    const int limit = platform::toInt16(marker + numberIn(desk_.Text3())).value_or(0);
    const int step = numberIn(desk_.Text4());
    while (step >= 0 ? marker <= limit : marker >= limit) {
        layCopy(firstRow, lastRow);
        const auto next = platform::toInt16(marker + step);
        if (step == 0 || !next)
            break;
        marker = *next;
    }
    return step != 0;
}

// A copy longer than the distance overwrites nothing yet: the next one overwrites its tail.
void Duplicate::layCopy(int firstRow, int lastRow) {
    Score& score = studio_.score;
    const int first = score.StartColumn;
    const int last = std::min(first + edits_.clip.ClipLength, lastGridColumn);
    forOpenRows(studio_.setup, firstRow, lastRow, [&](int row) {
        for (int column = first; column <= last; ++column)
            edits_.clip.give(score, row, column, column - first);
        startIfHeld(score.NoteArray, row, last + 1);
    });
}

void Duplicate::hintAtRepeat() {
    desk_.showHint("Repeat starts at 1: with 0 there is nothing to lay a second copy at.");
}

void Duplicate::redraw() {
    scoreDesk_.DrawNoteArray();
    scoreDesk_.DrawBeatArray();
}

} // namespace velorin

// The steps of Duplicate.
//
//   Beats 31, Repeat 32, Notes 60:          Beats 12, Repeat 12, Notes 24:
//
//   |pattern 0..31 |copy 32..63 |           |pattern 0..16|
//                                                 |copy 12..28|
//                                                       |copy 24..40|
#include "editing/Duplicate.h"

#include "editing/BlockEdits.h"
#include "editing/OpenRows.h"
#include "platform/Text.h"
#include "studio/MainDesk.h"
#include "studio/ScoreCommands.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <algorithm>

namespace velorin {

namespace {

// Rule: the pattern has at least 17 columns, whatever Beats says. Held by editing/duplicate.
constexpr std::int16_t shortestPatternEnd = 16;

std::int16_t numberIn(const std::string& text) {
    return platform::readInt16(text).value_or(0);
}

} // namespace

void Duplicate::CopyNotes(int firstRow, int lastRow) {
    Command6_Click();

    // `SelectEnd` is -1 here, so this copy only clears the clipboard.
    Score& score = studio_.score;
    score.SelectStart = 0;
    edits_.CopySelectedArea();
    score.SelectStart = 0;

    score.SelectEnd = std::max(numberIn(studio_.desk->text(MainText::Text5)), shortestPatternEnd);
    edits_.clip.ClipLength = static_cast<std::int16_t>(score.SelectEnd - score.SelectStart);
    takePattern(firstRow, lastRow);
    studio_.score.dropSelection();

    const bool repeats = pasteCopies(firstRow, lastRow);
    redraw();
    score.StartColumn = 0;
    if (!repeats)
        hintAtRepeat();
}

// Rule: the clear in the middle affects every row, so a hidden row loses its notes. Held by
// editing/duplicate.
void Duplicate::Command6_Click() {
    Clipboard& clip = edits_.clip;
    const Score& score = studio_.score;
    if (const auto beats = platform::readInt16(studio_.desk->text(MainText::Text5)))
        clip.ClipLength = *beats;
    clip.clearNotes();
    forOpenRows(studio_.setup.options(), [&](int row) {
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
    forOpenRows(studio_.setup.options(), firstRow, lastRow, [&](int row) {
        for (int column = score.SelectStart; column <= score.SelectEnd; ++column)
            clip.take(score, row, column, column - score.SelectStart);
    });
    clip.startAtLeftEdge(firstRow, lastRow);
}

void Duplicate::DuplicateRepeat(int firstRow, int lastRow) {
    if (!pasteCopies(firstRow, lastRow))
        hintAtRepeat();
}

// The marker itself moves from copy to copy. The loop ends if the next place does not fit 16 bits.
//
// Rule: a Repeat of 0 pastes one copy. A negative Repeat pastes none if Notes is positive. Held by
// editing/duplicate.
bool Duplicate::pasteCopies(int firstRow, int lastRow) {
    std::int16_t& marker = studio_.score.StartColumn;
    const int limit =
        platform::toInt16(marker + numberIn(studio_.desk->text(MainText::Text3))).value_or(0);
    const int step = numberIn(studio_.desk->text(MainText::Text4));
    while (step >= 0 ? marker <= limit : marker >= limit) {
        pasteCopy(firstRow, lastRow);
        const auto next = platform::toInt16(marker + step);
        if (step == 0 || !next)
            break;
        marker = *next;
    }
    return step != 0;
}

// If a copy is longer than Repeat, the next copy overwrites its tail.
void Duplicate::pasteCopy(int firstRow, int lastRow) {
    Score& score = studio_.score;
    const int first = score.StartColumn;
    const int last = std::min(first + edits_.clip.ClipLength, lastGridColumn);
    forOpenRows(studio_.setup.options(), firstRow, lastRow, [&](int row) {
        for (int column = first; column <= last; ++column)
            edits_.clip.give(score, row, column, column - first);
        startIfHeld(score.NoteArray, row, last + 1);
    });
}

void Duplicate::hintAtRepeat() {
    studio_.desk->showHint("Repeat starts at 1: with 0 there is nothing to lay a second copy at.");
}

void Duplicate::redraw() {
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
}

} // namespace velorin

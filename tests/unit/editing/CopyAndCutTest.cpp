// Copy and cut: what goes to the clipboard and what stays in the score.
#include "EditingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

const Lines onlyFocus{"focus MusicBox"};
const Lines focusAndRedraw{"focus MusicBox", "DrawNoteArray", "DrawBeatArray"};

TEST(Copy, WithoutASelectionItOnlyMovesTheFocus) {
    EditingStage stage;
    stage.note(0, 3, 60);

    stage.edits.copyIt();

    EXPECT_EQ(stage.asked(), onlyFocus);
    EXPECT_EQ(stage.edits.clip.ClipLength, 0);
    EXPECT_EQ(stage.notes(0, 3, 3), "60");
}

TEST(Copy, TakesTheBlockOfAllRowsAndEndsTheSelection) {
    EditingStage stage;
    stage.note(0, 3, 60, 2, 24);
    stage.note(12, 4, 57, 1, 128);
    stage.select(3, 5);

    stage.edits.copyIt();

    const Clipboard& clip = stage.edits.clip;
    EXPECT_EQ(clip.ClipLength, 2);
    EXPECT_EQ(scripted::gridText(clip.ClipNotes, 0, 0, 3), "60 1060 . 0");
    EXPECT_EQ(scripted::gridText(clip.ClipInstruments, 0, 0, 3), "24 24 0 0");
    EXPECT_EQ(scripted::gridText(clip.ClipNotes, 12, 0, 2), ". 57 .");
    EXPECT_EQ(stage.score.SelectStart, -1);
    EXPECT_EQ(stage.score.SelectEnd, -1);
    EXPECT_EQ(stage.asked(), focusAndRedraw);
}

TEST(Copy, ANoteCutOffAtTheLeftEdgeStartsOnTheFirstClipboardColumn) {
    EditingStage stage;
    stage.note(0, 3, 60, 4);
    stage.select(4, 6);

    stage.edits.copyIt();

    EXPECT_EQ(scripted::gridText(stage.edits.clip.ClipNotes, 0, 0, 2), "60 1060 1060");
    EXPECT_EQ(stage.notes(0, 3, 6), "60 1060 1060 1060") << "the source is not changed";
}

TEST(Copy, AHiddenRowLeavesZerosInTheClipboard) {
    EditingStage stage;
    stage.note(2, 3, 60);
    stage.hide(2);
    stage.select(3, 4);

    stage.edits.copyIt();

    EXPECT_EQ(scripted::gridText(stage.edits.clip.ClipNotes, 2, 0, 1), "0 0");
}

// The mark of row r, column c is entry (r + 1, c + 1), but the copy reads entry (r, c). So it takes
// the marks of the row before, one column earlier. The hidden state of row r decides whether entry
// r is copied.
TEST(Copy, ChordMarksAreTakenByTheNumbersOfTheCells) {
    EditingStage stage;
    stage.score.PolyArray.write(1, 10, 1); // row 0, column 9: just before the block
    stage.score.PolyArray.write(1, 13, 1); // row 0, column 12: the last of the block
    stage.score.PolyArray.write(2, 11, 1); // row 1, column 10
    stage.hide(2);
    stage.select(10, 12);

    stage.edits.copyIt();

    const auto& marks = stage.edits.clip.ClipPoly;
    EXPECT_EQ(scripted::gridText(marks, 1, 0, 3), "1 0 0 0");
    EXPECT_EQ(scripted::gridText(marks, 2, 0, 3), "0 0 0 0") << "row 2 is hidden";
}

TEST(Copy, TheMarksOfAnEarlierCopyStayWhereTheNewOneIsShorter) {
    EditingStage stage;
    stage.score.PolyArray.write(1, 12, 1);
    stage.select(10, 12);
    stage.edits.copyIt();
    stage.select(20, 20);
    stage.edits.copyIt();

    EXPECT_EQ(scripted::gridText(stage.edits.clip.ClipPoly, 1, 0, 2), "0 0 1");
}

TEST(Cut, WithoutASelectionItDoesNothing) {
    EditingStage stage;
    stage.note(0, 3, 60, 3);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.notes(0, 3, 6), "60 1060 1060 .");
    EXPECT_EQ(stage.asked(), onlyFocus);
}

TEST(Cut, OfOneColumnShiftsTheRestByOneToTheLeft) {
    EditingStage stage;
    stage.note(0, 10, 60);
    stage.note(0, 11, 62, 2, 5);
    stage.note(0, 1000, 64);
    stage.select(10, 10);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.edits.clip.ClipLength, 0);
    EXPECT_EQ(stage.notes(0, 9, 12), ". 62 1062 .");
    EXPECT_EQ(stage.instruments(0, 9, 12), "0 5 5 0");
    EXPECT_EQ(stage.notes(0, 998, 1000), ". 64 .");
    EXPECT_EQ(stage.score.SelectStart, -1);
    EXPECT_EQ(stage.score.SelectEnd, -1);
    EXPECT_EQ(stage.asked(), focusAndRedraw);
}

TEST(Cut, OutOfTheMiddleOfANoteMakesTwo) {
    EditingStage stage;
    stage.note(0, 5, 60, 10);
    stage.select(8, 10);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.notes(0, 4, 12), ". 60 1060 1060 60 1060 1060 1060 .");
}

TEST(Cut, LeavesChordMarksOnTheirColumns) {
    EditingStage stage;
    stage.score.PolyArray.write(1, 20, 1);
    stage.select(5, 9);

    stage.edits.CutBut_Click();

    EXPECT_EQ(scripted::gridText(stage.score.PolyArray, 1, 14, 20), "0 0 0 0 0 0 1");
}

TEST(Cut, LeavesAHiddenRowAlone) {
    EditingStage stage;
    stage.note(3, 5, 60, 10);
    stage.hide(3);
    stage.select(8, 10);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.notes(3, 5, 15), "60 1060 1060 1060 1060 1060 1060 1060 1060 1060 .");
}

// The end of the last selection is before the new start: the width is -4, and the shift repeats the
// four columns before the block up to the end.
TEST(Cut, OfASelectionTurnedRoundRepeatsTheColumnsBeforeIt) {
    EditingStage stage;
    stage.note(0, 6, 60);
    stage.note(0, 8, 61, 2);
    stage.note(0, 12, 63);
    stage.select(10, 5);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.edits.clip.ClipLength, -5);
    EXPECT_EQ(stage.notes(0, 6, 17), "60 . 61 1061 60 . 61 1061 60 . 61 1061");
    EXPECT_EQ(stage.notes(0, 997, 1000), "1061 60 . 61");
}

TEST(Cut, OfASelectionPastTheEndBlanksAsManyColumnsAsItIsWide) {
    EditingStage stage;
    for (int column = 980; column <= 1000; ++column)
        stage.note(0, column, 60);
    stage.select(995, 1010);

    stage.edits.CutBut_Click();

    EXPECT_EQ(stage.notes(0, 983, 986), "60 60 . .");
    EXPECT_EQ(stage.notes(0, 999, 1000), ". .");
}

} // namespace
} // namespace velorin

// Paste and insert: overwriting at the marker, opening gaps, and the notes split at their edges.
#include "EditingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(Paste, WritesTheBlockAtTheMarkerAndKeepsSelectionAndMarker) {
    EditingStage stage;
    stage.note(0, 3, 60, 2, 24);
    stage.select(3, 5);
    stage.edits.CopySelectedArea();
    stage.asked();
    stage.note(0, 20, 70, 2, 9);
    stage.score.StartColumn = 20;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(0, 19, 23), ". 60 1060 . .") << "empty cells are written too";
    EXPECT_EQ(stage.instruments(0, 19, 23), "0 24 24 0 0");
    EXPECT_EQ(stage.score.StartColumn, 20);
    EXPECT_EQ(stage.score.SelectStart, 3);
    EXPECT_EQ(stage.asked(), (Lines{"focus MusicBox", "DrawNoteArray", "DrawBeatArray"}));
}

TEST(Paste, OverTheMiddleOfALongNoteMakesItsRestANewNote) {
    EditingStage stage;
    stage.note(0, 0, 60, 2);
    stage.select(0, 1);
    stage.edits.copyIt();
    stage.note(0, 10, 70, 8);
    stage.score.StartColumn = 12;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(0, 10, 18), "70 1070 60 1060 70 1070 1070 1070 .");
}

TEST(Paste, NearTheEndDropsWhatDoesNotFit) {
    EditingStage stage;
    for (int column = 0; column < 20; ++column)
        stage.note(0, column, 40 + column);
    stage.select(0, 19);
    stage.edits.copyIt();
    stage.score.StartColumn = 995;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(0, 994, 1001), ". 40 41 42 43 44 45 outside");
}

TEST(Paste, BeforeAnyCopyWritesNotesOnTheTopLineIntoOneColumn) {
    EditingStage stage;
    stage.hide(4);
    stage.score.InstrumentArray.write(2, 7, 33);
    stage.score.StartColumn = 7;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(2, 6, 8), ". 0 .");
    EXPECT_EQ(stage.instruments(2, 6, 8), "0 0 0");
    EXPECT_EQ(stage.notes(12, 6, 8), ". 0 .");
    EXPECT_EQ(stage.notes(4, 6, 8), ". . .") << "hidden";
}

TEST(Paste, IntoARowThatWasHiddenAtTheCopyWritesNotesOnTheTopLine) {
    EditingStage stage;
    stage.note(2, 3, 60);
    stage.hide(2);
    stage.select(3, 5);
    stage.edits.copyIt();
    stage.show(2);
    stage.score.StartColumn = 10;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(2, 9, 13), ". 0 0 0 .");
}

TEST(Paste, LeavesAHiddenRowAlone) {
    EditingStage stage;
    stage.note(2, 10, 60, 4);
    stage.select(0, 1);
    stage.edits.copyIt();
    stage.hide(2);
    stage.score.StartColumn = 10;

    stage.edits.PasteBut_Click();

    EXPECT_EQ(stage.notes(2, 10, 14), "60 1060 1060 1060 .");
}

TEST(Paste, GivesChordMarksBackByTheNumbersOfTheCells) {
    EditingStage stage;
    stage.score.PolyArray.write(3, 11, 1);
    stage.score.PolyArray.write(8, 11, 1);
    stage.select(10, 12);
    stage.edits.copyIt();
    stage.score.StartColumn = 50;
    stage.score.PolyArray.write(3, 50, 1);

    stage.edits.PasteBut_Click();

    EXPECT_EQ(scripted::gridText(stage.score.PolyArray, 3, 49, 53), "0 0 1 0 0");
    EXPECT_EQ(scripted::gridText(stage.score.PolyArray, 8, 49, 53), "0 0 1 0 0");
}

TEST(PasteInsert, OpensAGapOfTheBlocksWidthFirst) {
    EditingStage stage;
    stage.note(0, 0, 60, 2);
    stage.select(0, 1);
    stage.edits.copyIt();
    stage.asked();
    stage.note(0, 10, 70, 4);
    stage.score.StartColumn = 12;

    stage.edits.PasteIntoBut_Click();

    EXPECT_EQ(stage.notes(0, 9, 16), ". 70 1070 60 1060 70 1070 .");
    EXPECT_EQ(stage.asked(),
              (Lines{"focus MusicBox", "focus MusicBox", "DrawNoteArray", "DrawBeatArray"}));
}

TEST(PasteInsert, NearTheEndPushesTheEndOfTheScoreOff) {
    EditingStage stage;
    stage.note(0, 0, 60);
    stage.select(0, 2);
    stage.edits.copyIt();
    stage.note(0, 997, 70);
    stage.note(0, 998, 71);
    stage.score.StartColumn = 996;

    stage.edits.PasteIntoBut_Click();

    EXPECT_EQ(stage.notes(0, 995, 1000), ". 60 . . . 70");
}

TEST(Insert, OfOneAtTheStartShiftsTheWholeSongAndLosesTheLastColumn) {
    EditingStage stage;
    stage.note(0, 0, 60, 2, 7);
    stage.note(0, 1000, 70);
    stage.score.PolyArray.write(1, 1, 1);

    stage.edits.InsertColumnBut_Click();

    EXPECT_EQ(stage.notes(0, 0, 3), ". 60 1060 .");
    EXPECT_EQ(stage.instruments(0, 0, 3), "0 7 7 0");
    EXPECT_EQ(stage.notes(0, 999, 1000), ". .");
    EXPECT_EQ(scripted::gridText(stage.score.PolyArray, 1, 0, 2), "0 1 0")
        << "chord marks stay on their columns";
    EXPECT_EQ(stage.asked(), (Lines{"focus MusicBox", "DrawNoteArray", "DrawBeatArray"}));
}

TEST(Insert, OnAHeldCellSplitsTheNote) {
    EditingStage stage;
    stage.note(0, 5, 60, 4);
    stage.score.StartColumn = 7;
    stage.texts.spaces = std::string("2");

    stage.edits.InsertColumnBut_Click();

    EXPECT_EQ(stage.notes(0, 4, 11), ". 60 1060 . . 60 1060 .");
}

TEST(Insert, OfNoneChangesNothingButTheSplit) {
    EditingStage stage;
    stage.note(0, 5, 60, 4);
    stage.score.StartColumn = 7;
    stage.texts.spaces = std::string("0");

    stage.edits.InsertColumnBut_Click();

    EXPECT_EQ(stage.notes(0, 4, 9), ". 60 1060 60 1060 .");
}

TEST(Insert, LeavesAHiddenRowAlone) {
    EditingStage stage;
    stage.note(1, 5, 60, 4);
    stage.hide(1);
    stage.score.StartColumn = 7;

    stage.edits.InsertColumns(3);

    EXPECT_EQ(stage.notes(1, 5, 9), "60 1060 1060 1060 .");
}

TEST(Insert, OfATextWithoutANumberInsertsNone) {
    EditingStage stage;
    stage.note(0, 5, 60);
    stage.texts.spaces = std::string("many");

    stage.edits.InsertColumnBut_Click();

    EXPECT_EQ(stage.notes(0, 4, 6), ". 60 .");
}

// From the right to one before the marker, each column takes the cell after it, so all of them end
// up as the last one.
TEST(Insert, OfMinusOneFillsTheRestWithTheLastColumn) {
    EditingStage stage;
    stage.note(0, 5, 60);
    stage.note(0, 999, 70, 2);
    stage.score.StartColumn = 10;

    stage.edits.InsertColumns(-1);

    EXPECT_EQ(stage.notes(0, 5, 11), "60 . . . 70 1070 1070");
    EXPECT_EQ(stage.notes(0, 998, 1000), "1070 1070 1070");
}

TEST(Insert, OfMoreColumnsThanThereAreBlanksFromTheMarkerOn) {
    EditingStage stage;
    stage.note(0, 5, 60, 3);
    stage.score.StartColumn = 6;

    stage.edits.InsertColumns(1001);

    EXPECT_EQ(stage.notes(0, 4, 8), ". 60 . . .");
}

TEST(Insert, OfTheLargestNumberAtTheStartBlanksTheSong) {
    EditingStage stage;
    stage.note(0, 0, 60, 3);

    stage.edits.InsertColumns(32767);

    EXPECT_EQ(stage.notes(0, 0, 3), ". . . .");
}

TEST(Insert, WithAnEndThatNoNumberHoldsMovesNothing) {
    EditingStage stage;
    stage.note(0, 5, 60, 3);
    stage.score.StartColumn = 6;

    stage.edits.InsertColumns(32767);

    EXPECT_EQ(stage.notes(0, 4, 8), ". 60 1060 1060 .");
}

} // namespace
} // namespace velorin

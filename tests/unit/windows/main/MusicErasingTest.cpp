// The right button on the music tableau: erasing notes, setting chord marks, opening menus.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(MusicMouseErase, ARightClickOnARestChangesNothing) {
    TableauStage stage;
    stage.press(rightButton, 3, 2);
    EXPECT_EQ(stage.marks(1, 0, 6), "0 0 0 0 0 0 0");
    EXPECT_EQ(stage.notes(0, 2, 4), ". . .");
}

TEST(MusicMouseErase, ARightClickOnAHeldCellErasesTheWholeNote) {
    TableauStage stage;
    stage.note(0, 2, 60, 4, 7);
    stage.note(0, 6, 61, 2, 7);
    stage.press(rightButton, 4, 9);

    EXPECT_EQ(stage.notes(0, 2, 7), ". . . . 61 1061");
    EXPECT_EQ(stage.instruments(0, 2, 7), "0 0 0 0 7 7");
    EXPECT_EQ(stage.marks(1, 0, 8), "0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(stage.drag.MouseColumn, 6) << "the column has walked along";
}

TEST(MusicMouseErase, ClearsTheMarksOfTheNoteButThatOfItsLastColumn) {
    TableauStage stage;
    stage.note(0, 2, 60, 3);
    for (int index = 2; index <= 7; ++index)
        stage.score.PolyArray.write(1, index, 1);
    stage.press(rightButton, 2, 2);

    // The head clears index 3, its own; the held cells of columns 3 and 4 clear 3 and 4.
    EXPECT_EQ(stage.marks(1, 2, 7), "1 0 0 1 1 1");
}

TEST(MusicMouseErase, ARightDragErasesNoteAfterNote) {
    TableauStage stage;
    stage.note(0, 2, 60);
    stage.note(0, 5, 61, 2);
    stage.press(rightButton, 2, 2);
    stage.move(rightButton, 4, 2);
    stage.move(rightButton, 6, 2);
    stage.release(rightButton, 6, 2);

    EXPECT_EQ(stage.notes(0, 2, 7), ". . . . . .");
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
}

// The view begins within the note: the walk leaves the screen, and only its marks are skipped.
TEST(MusicMouseErase, WalksOnThroughTheScoreLeftOfTheScreen) {
    TableauStage stage;
    stage.note(0, 15, 60, 10);
    stage.scrollTo(20);
    stage.press(rightButton, 2, 2);

    EXPECT_EQ(stage.notes(0, 15, 24), ". . . . . . . . . .");
}

TEST(MusicMouseErase, ARunOfHeldCellsFromColumnZeroIsErasedWhole) {
    TableauStage stage;
    for (int column = 0; column < 4; ++column)
        stage.score.NoteArray.write(0, column, 1060);
    stage.press(rightButton, 2, 2);

    EXPECT_EQ(stage.notes(0, 0, 4), ". . . . .");
}

TEST(MusicMouseErase, LetsTheMessageLoopThroughOnTheWayToTheHead) {
    TableauStage stage;
    stage.note(0, 2, 60, 4);
    std::string seen;
    stage.host.time.plan(0, [&] { seen = stage.notes(0, 2, 5); });
    stage.press(rightButton, 5, 2);

    EXPECT_EQ(seen, "60 1060 1060 1060");
}

TEST(MusicMouseMark, ARightClickOnAHeadSetsTheMarkAndTheRingShows) {
    TableauStage stage;
    stage.studio.run.RightClickMode = 2;
    stage.note(0, 4, 57);
    stage.press(rightButton, 4, 2);

    EXPECT_EQ(stage.marks(1, 4, 6), "0 1 0");
    EXPECT_EQ(stage.notes(0, 4, 4), "57");
    // The ring's lowest point, 7 below the centre of the cell.
    EXPECT_NE(stage.musicPixel(4 * 12 + 5, 24 + 12), white);
    EXPECT_EQ(stage.polyPixel(4 * 12 + 5, 3), red) << "and the lane is redrawn";
}

TEST(MusicMouseMark, ARightClickOnAHeldCellLeavesTheHeadsMarkAsItWas) {
    TableauStage stage;
    stage.studio.run.RightClickMode = 2;
    stage.note(0, 4, 57, 4);
    for (int index = 5; index <= 8; ++index)
        stage.score.PolyArray.write(1, index, 1);
    stage.press(rightButton, 7, 2);

    EXPECT_EQ(stage.marks(1, 4, 9), "0 1 0 0 0 0") << "the walk clears what it passes";
    EXPECT_EQ(stage.notes(0, 4, 7), "57 1057 1057 1057");
    EXPECT_EQ(stage.drag.MouseColumn, 4);
}

TEST(MusicMouseMark, InAScrolledViewTheMarkGoesByTheScreen) {
    TableauStage stage;
    stage.studio.run.RightClickMode = 2;
    stage.scrollTo(20);
    stage.note(1, 24, 57);
    stage.score.CurrentRow = 1;
    stage.press(rightButton, 4, 2);

    EXPECT_EQ(stage.marks(2, 4, 6), "0 1 0");
    EXPECT_EQ(stage.marks(2, 24, 26), "0 0 0");
}

TEST(MusicMouseMenu, TheRightButtonShowsTheMenuOfItsMode) {
    TableauStage stage;
    stage.studio.run.RightClickMode = 1;
    stage.note(0, 3, 57);
    stage.press(rightButton, 3, 2);
    EXPECT_EQ(stage.desk.popups, Lines{"Command1"});
    EXPECT_EQ(stage.notes(0, 3, 3), "57");

    stage.studio.run.EditMode = 1;
    stage.press(rightButton, 3, 2);
    EXPECT_EQ(stage.desk.popups, (Lines{"Command1", "Command2"}));
    EXPECT_EQ(stage.score.StartColumn, 0);
}

} // namespace
} // namespace velorin

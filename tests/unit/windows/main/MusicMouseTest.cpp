// Drawing notes on the music tableau: what the mouse writes, sounds and paints.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

const Lines pressOfPitch57{"0.000 90 46 7F"}; // key 127 - 57 = 70
const Lines releaseOfPitch57{"0.000 80 46 00"};

TEST(MusicMouseDraw, AClickMakesANoteOfOneColumnAndDoesNotResetTheDevice) {
    TableauStage stage;
    stage.score.RowInstrument[0] = 24;

    stage.press(leftButton, 3, 2);
    EXPECT_EQ(stage.midi(), pressOfPitch57);
    EXPECT_EQ(stage.notes(0, 3, 3), ".") << "the grids change at the release";
    stage.release(leftButton, 3, 2);

    EXPECT_EQ(stage.notes(0, 2, 4), ". 57 .");
    EXPECT_EQ(stage.instruments(0, 2, 4), "0 24 0");
    EXPECT_EQ(stage.midi(), releaseOfPitch57);
}

TEST(MusicMouseDraw, ADragWritesHeldCellsAndResetsTheDevice) {
    TableauStage stage;
    stage.score.RowInstrument[0] = 24;

    stage.press(leftButton, 3, 2);
    stage.move(leftButton, 6, 2);
    stage.midi();
    stage.release(leftButton, 6, 2);

    EXPECT_EQ(stage.notes(0, 2, 7), ". 57 1057 1057 1057 .");
    EXPECT_EQ(stage.instruments(0, 2, 7), "0 24 24 24 24 0");
    EXPECT_EQ(stage.midi(), (Lines{"0.000 80 46 00", "0.000 close", "0.000 open 0",
                                   "0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 18"}));
}

TEST(MusicMouseDraw, ADragToTheLeftGivesANoteOfOneColumnAtThePress) {
    TableauStage stage;
    stage.press(leftButton, 5, 2);
    stage.move(leftButton, 2, 2);
    stage.release(leftButton, 2, 2);

    EXPECT_EQ(stage.notes(0, 1, 6), ". . . . 57 .");
}

TEST(MusicMouseDraw, TheNoteStaysOnTheLineOfThePress) {
    TableauStage stage;
    stage.press(leftButton, 5, 3);
    stage.move(leftButton, 5, 9);
    stage.release(leftButton, 5, 9);

    EXPECT_EQ(stage.notes(0, 5, 5), "58");
}

TEST(MusicMouseDraw, AReleaseFarOutsideEndsAtTheLastVisibleColumn) {
    TableauStage stage;
    stage.press(leftButton, 44, 2);
    stage.release(leftButton, 2000, 2);

    EXPECT_EQ(stage.notes(0, 43, 47), ". 57 1057 1057 .");
}

TEST(MusicMouseDraw, CellsGoByTheColumnOfTheScore) {
    TableauStage stage;
    stage.scrollTo(20);
    stage.press(leftButton, 3, 2);
    stage.release(leftButton, 4, 2);

    EXPECT_EQ(stage.notes(0, 22, 25), ". 57 1057 .");
}

TEST(MusicMouseDraw, ANoteOverTheMiddleOfAnotherSplitsIt) {
    TableauStage stage;
    stage.note(0, 2, 60, 6);
    stage.press(leftButton, 4, 2);
    stage.release(leftButton, 5, 2);

    EXPECT_EQ(stage.notes(0, 2, 8), "60 1060 57 1057 60 1060 .");
}

TEST(MusicMouseDraw, ANoteThatEndsWithTheOldOneLeavesNothingToRepair) {
    TableauStage stage;
    stage.note(0, 2, 60, 4);
    stage.press(leftButton, 4, 2);
    stage.release(leftButton, 5, 2);

    EXPECT_EQ(stage.notes(0, 2, 6), "60 1060 57 1057 .");
}

TEST(MusicMouseDraw, AnyPressClearsTheSelectionAndTheMarker) {
    TableauStage stage;
    for (const int button : {leftButton, rightButton, middleButton}) {
        stage.score.SelectStart = 3;
        stage.score.SelectEnd = 6;
        stage.score.StartColumn = 9;
        stage.press(button, 1, 1);
        EXPECT_EQ(stage.score.SelectStart, -1) << button;
        EXPECT_EQ(stage.score.SelectEnd, -1) << button;
        EXPECT_EQ(stage.score.StartColumn, 0) << button;
    }
}

TEST(MusicMouseDraw, OtherRowsOfTheColumnSoundWithThePress) {
    TableauStage stage;
    stage.note(2, 3, 60, 1, 5);
    stage.press(leftButton, 3, 2);

    EXPECT_EQ(stage.midi(), (Lines{"0.000 90 46 7F", "0.000 B2 00 00", "0.000 B2 20 00",
                                   "0.000 C2 05", "0.000 92 43 7F"}));
}

TEST(MusicMouseDraw, TheVelocityIsTheRowsVolume) {
    TableauStage stage;
    stage.setup.setVol(0, "100 percent");
    stage.press(leftButton, 3, 2);

    EXPECT_EQ(stage.midi(), Lines{"0.000 90 46 64"});
}

TEST(MusicMouseDraw, AHiddenRowIsDrawnInSilence) {
    TableauStage stage;
    stage.setup.setTrackHide(0, true);
    stage.press(leftButton, 3, 2);
    EXPECT_EQ(stage.midi(), Lines{});
    stage.release(leftButton, 3, 2);

    EXPECT_EQ(stage.notes(0, 3, 3), "57");
}

TEST(MusicMouseDraw, WhileASongPlaysAPressAndAReleaseDoNothing) {
    TableauStage stage;
    stage.studio.run.IsPlaying = flagSet;
    stage.press(leftButton, 3, 2);
    stage.move(leftButton, 6, 2);
    stage.release(leftButton, 6, 2);

    EXPECT_EQ(stage.notes(0, 3, 6), ". . . .");
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
    EXPECT_EQ(stage.midi(), Lines{});
}

TEST(MusicMouseDraw, AReleaseWithoutAPressWritesNothing) {
    TableauStage stage;
    stage.release(leftButton, 6, 2);
    EXPECT_EQ(stage.notes(0, 0, 7), ". . . . . . . .");
}

TEST(MusicMouseDraw, AMiddleButtonWritesNothing) {
    TableauStage stage;
    stage.press(middleButton, 3, 2);
    stage.release(middleButton, 5, 2);
    EXPECT_EQ(stage.notes(0, 3, 5), ". . .");
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
}

TEST(MusicMouseDraw, APlaceLeftOfThePictureIsColumnZeroUpToElevenPixels) {
    TableauStage stage;
    stage.mouse.MusicBox_MouseDown(leftButton, 0, -11, 5);
    EXPECT_EQ(stage.drag.MouseColumn, 0);
    stage.mouse.MusicBox_MouseDown(leftButton, 0, -12, -25);
    EXPECT_EQ(stage.drag.MouseColumn, -1);
    EXPECT_EQ(stage.drag.MouseLine, -2);
    // 11.5 and 23.5 round to the even 12 and 24; 12.5 rounds to 12.
    stage.mouse.MusicBox_MouseDown(leftButton, 0, 11.5, 23.5);
    EXPECT_EQ(stage.drag.MouseColumn, 1);
    EXPECT_EQ(stage.drag.MouseLine, 2);
    stage.mouse.MusicBox_MouseDown(leftButton, 0, 11.4, 12.5);
    EXPECT_EQ(stage.drag.MouseColumn, 0);
    EXPECT_EQ(stage.drag.MouseLine, 1);
}

TEST(MusicMouseDraw, APlaceBeyondSixteenBitsIsNotTaken) {
    TableauStage stage;
    stage.press(leftButton, 3, 2);
    stage.mouse.MusicBox_MouseDown(leftButton, 0, 1e9, 1e9);
    EXPECT_EQ(stage.drag.MouseColumn, 3);
    EXPECT_EQ(stage.drag.MouseLine, 2);
}

TEST(MusicMouseDraw, APressPastTheGridWritesNothing) {
    TableauStage stage;
    stage.scrollTo(990);
    stage.press(leftButton, 15, 2);
    stage.release(leftButton, 20, 2);
    EXPECT_EQ(stage.notes(0, 998, 1001), ". . . outside");
}

TEST(MusicMouseDraw, WithAPercussionRowCurrentThePressOnlySelectsRowZero) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.setup.values.instrument = 30;
    stage.press(leftButton, 3, 2);

    EXPECT_EQ(stage.score.CurrentRow, 0);
    EXPECT_EQ(stage.score.RowInstrument[0], 30);
    EXPECT_EQ(stage.asked(), (Lines{"TrackSel_MouseDown(0)", "picture(0) on", "TrackSel(0) on"}));
    EXPECT_EQ(stage.midi(), (Lines{"0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 1E"}));
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
    stage.release(leftButton, 3, 2);
    EXPECT_EQ(stage.notes(0, 3, 3), ".");
}

TEST(MusicMouseBand, ThePressDrawsTheHeadAndTheMoveTheBandInTheRowsColour) {
    TableauStage stage;
    stage.press(leftButton, 3, 2);
    EXPECT_EQ(stage.musicPixel(36 + 7, 24 + 5), rgb(192, 255, 255))
        << "in the fill colour that the last draw left";
    stage.move(leftButton, 5, 2);

    EXPECT_EQ(stage.drag.DragColumn, 5);
    EXPECT_EQ(stage.musicPixel(5 * 12 + 10, 24 + 4), red);
    EXPECT_EQ(stage.musicPixel(5 * 12 + 10, 24 + 7), red);
    EXPECT_EQ(stage.musicPixel(5 * 12 + 11, 24 + 5), white);
    EXPECT_EQ(stage.musicPixel(36 + 7, 24 + 5), red) << "the head is filled from the first step on";
}

TEST(MusicMouseBand, GoingBackWipesTheBand) {
    TableauStage stage;
    stage.press(leftButton, 3, 2);
    stage.move(leftButton, 7, 2);
    stage.move(leftButton, 4, 2);

    EXPECT_EQ(stage.musicPixel(4 * 12 + 10, 24 + 5), red);
    EXPECT_EQ(stage.musicPixel(6 * 12 + 5, 24 + 5), white);
}

TEST(MusicMouseBand, IsClampedToThePressAndToTheRightEdge) {
    TableauStage stage;
    stage.press(leftButton, 3, 2);
    stage.move(leftButton, 1, 2);
    EXPECT_EQ(stage.drag.DragColumn, 3);
    EXPECT_EQ(stage.drag.PriorDragColumn, 1) << "the raw column is remembered";
    stage.move(leftButton, 400, 2);
    EXPECT_EQ(stage.drag.DragColumn, 46);
}

TEST(MusicMouseBand, AMoveWithinTheColumnThatCountedLastEndsAtOnce) {
    TableauStage stage;
    stage.press(leftButton, 3, 2);
    stage.move(leftButton, 5, 2);
    stage.move(leftButton, 5, 9);
    EXPECT_EQ(stage.drag.PriorLine, 2) << "not even the line is remembered";
    stage.move(leftButton, 6, 9);
    EXPECT_EQ(stage.drag.PriorLine, 9);
}

TEST(MusicMouseBand, ADragThatBeganElsewhereDoesNothing) {
    TableauStage stage;
    stage.move(leftButton, 5, 2);
    EXPECT_EQ(stage.drag.PriorDragColumn, 0);
    EXPECT_EQ(stage.drag.PriorLine, 0);
}

TEST(MusicMousePointer, IsThePenWhileTheNoteIsDrawnOnItsLine) {
    TableauStage stage;
    const PictureBox& box = *stage.area.MusicBox;
    stage.move(noButton, 3, 2);
    EXPECT_EQ(box.MousePointer(), pointerUpArrow);
    stage.press(leftButton, 3, 2);
    EXPECT_EQ(box.MousePointer(), pointerOwn);
    stage.move(leftButton, 4, 8);
    EXPECT_EQ(box.MousePointer(), pointerOwn) << "the move before was on the line";
    stage.move(leftButton, 5, 8);
    EXPECT_EQ(box.MousePointer(), pointerUpArrow);
    stage.release(leftButton, 5, 8);
    EXPECT_EQ(box.MousePointer(), pointerUpArrow);
}

TEST(MusicMousePointer, FollowsTheEditMode) {
    TableauStage stage;
    for (const auto& [index, pointer] :
         {std::pair{1, pointerCross}, {0, pointerDefault}, {2, pointerCross}}) {
        stage.mouse.FunctionBut_Click(index);
        EXPECT_EQ(stage.studio.run.EditMode, index);
        EXPECT_EQ(stage.area.MusicBox->MousePointer(), pointer) << index;
    }
}

} // namespace
} // namespace velorin

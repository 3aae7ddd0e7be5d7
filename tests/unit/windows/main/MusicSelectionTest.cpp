// The marker and the selection on the music tableau, its tool tips, and its focus.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

std::string musicTip(const TableauStage& stage) {
    return stage.area.MusicBox->toolTip().toStdString();
}

TEST(MarkerMode, AnyButtonButTheRightSetsTheMarker) {
    TableauStage stage;
    stage.studio.run.EditMode = 1;
    stage.scrollTo(20);
    for (const int button : {leftButton, middleButton}) {
        stage.score.StartColumn = 0;
        stage.press(button, 5, 2);
        EXPECT_EQ(stage.score.StartColumn, 25) << button;
    }
    EXPECT_NE(stage.musicPixel(5 * 12 - 2, 100), white) << "the marker is drawn";
    stage.move(leftButton, 9, 2);
    stage.release(leftButton, 9, 2);
    EXPECT_EQ(stage.score.StartColumn, 25);
    EXPECT_EQ(stage.notes(0, 20, 30), ". . . . . . . . . . .");
}

TEST(SelectMode, ADragSelectsFromThePressToTheRelease) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.scrollTo(20);
    stage.press(leftButton, 5, 2);
    EXPECT_EQ(stage.score.SelectStart, 25);
    EXPECT_EQ(stage.score.SelectEnd, -1) << "the press does not touch the end";
    EXPECT_EQ(stage.score.StartColumn, 25);
    stage.move(leftButton, 8, 2);
    stage.release(leftButton, 8, 2);

    EXPECT_EQ(stage.score.SelectEnd, 28);
    EXPECT_EQ(stage.studio.run.PlayBlockStart, 25);
    EXPECT_EQ(stage.studio.run.PlayBlockEnd, 28);
}

TEST(SelectMode, TheBandIsBlueAndStandsOnACleanPicture) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.press(leftButton, 5, 2);
    stage.move(leftButton, 9, 2);
    stage.move(leftButton, 7, 2);

    EXPECT_EQ(stage.musicPixel(5 * 12, 100), blue);
    EXPECT_EQ(stage.musicPixel(7 * 12 + 12, 100), blue);
    EXPECT_EQ(stage.musicPixel(6 * 12 + 5, 0), blue);
    EXPECT_EQ(stage.musicPixel(6 * 12 + 5, TableauStage::heightPx - 1), blue);
    EXPECT_NE(stage.musicPixel(9 * 12 + 12, 100), blue);
}

TEST(SelectMode, APressInsideAnOldSelectionMovesItsStartAndKeepsItsEnd) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.score.SelectStart = 4;
    stage.score.SelectEnd = 12;
    stage.press(leftButton, 8, 2);

    EXPECT_EQ(stage.score.SelectStart, 8);
    EXPECT_EQ(stage.score.SelectEnd, 12);
    EXPECT_EQ(stage.drag.DragStart, 8);
    EXPECT_EQ(stage.musicPixel(8 * 12 + 16, 100), blue) << "the outline stays";
}

TEST(SelectMode, APressBeforeAnOldSelectionIsRedrawnWithoutAnOutline) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.score.SelectStart = 20;
    stage.score.SelectEnd = 22;
    stage.press(leftButton, 8, 2);

    EXPECT_EQ(stage.score.SelectStart, 8);
    EXPECT_NE(stage.musicPixel(8 * 12 + 16, 100), blue);
    EXPECT_NE(stage.musicPixel(8 * 12 + 16, 100), white) << "tinted from 8 to 22";
}

TEST(SelectMode, ADragToTheLeftSelectsOneColumn) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.press(leftButton, 8, 2);
    stage.move(leftButton, 3, 2);
    stage.release(leftButton, 3, 2);

    EXPECT_EQ(stage.score.SelectStart, 8);
    EXPECT_EQ(stage.score.SelectEnd, 8);
}

TEST(SelectMode, AReleaseFarRightEndsAtTheLastVisibleColumn) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.press(leftButton, 8, 2);
    stage.release(leftButton, 900, 2);

    EXPECT_EQ(stage.score.SelectEnd, 46);
}

TEST(SelectMode, AMoveWithinTheColumnThatCountedLastEndsAtOnceHereToo) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.press(leftButton, 8, 2);
    stage.move(leftButton, 9, 2);
    stage.move(leftButton, 9, 7);
    EXPECT_EQ(stage.drag.PriorLine, 2);
}

TEST(SelectMode, TheRightButtonShowsTheMenuAndThenDropsTheSelection) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.score.SelectStart = 4;
    stage.score.SelectEnd = 12;
    stage.score.StartColumn = 4;
    stage.studio.run.PlayBlockStart = 4;
    stage.press(rightButton, 8, 2);
    stage.release(rightButton, 8, 2);

    EXPECT_EQ(stage.desk.popups, Lines{"Command2"});
    EXPECT_EQ(stage.score.SelectStart, -1);
    EXPECT_EQ(stage.score.SelectEnd, -1);
    EXPECT_EQ(stage.score.StartColumn, 0);
    EXPECT_EQ(stage.studio.run.PlayBlockStart, 4) << "the block to play stays";
}

TEST(MusicToolTip, NamesTheNoteAndItsInstrument) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.note(0, 3, 60, 2, 24); // pitch 60 is 5G
    stage.move(noButton, 3, 0);
    EXPECT_EQ(musicTip(stage), "G -  Nylon Guitar");
    stage.move(noButton, 4, 0);
    EXPECT_EQ(musicTip(stage), "G -  Nylon Guitar");
    stage.move(noButton, 5, 0);
    EXPECT_EQ(musicTip(stage), "");
}

TEST(MusicToolTip, OverACShowsTheNameOfTheNoteBefore) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.note(0, 0, 67); // 5C
    stage.note(0, 1, 65); // 5D
    stage.move(noButton, 0, 0);
    EXPECT_EQ(musicTip(stage), " -  Acoustic Grand Piano") << "there was none before";
    stage.move(noButton, 1, 0);
    EXPECT_EQ(musicTip(stage), "D -  Acoustic Grand Piano");
    stage.move(noButton, 0, 0);
    EXPECT_EQ(musicTip(stage), "D -  Acoustic Grand Piano");
}

TEST(MusicToolTip, OfAPercussionInstrumentIsTheLabelAlone) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.note(0, 3, 60, 1, 128);
    stage.move(noButton, 3, 0);
    EXPECT_EQ(musicTip(stage), "G -  ");
}

TEST(MusicToolTip, SpeaksOfTheFirstScreenOfTheScore) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.scrollTo(20);
    stage.note(0, 3, 60);
    stage.move(noButton, 3, 0);
    EXPECT_EQ(musicTip(stage), "G -  Acoustic Grand Piano");
}

TEST(MusicToolTip, ItsColumnRoundsDown) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.note(0, 0, 60);
    stage.mouse.MusicBox_MouseMove(noButton, 0, 11.9, 0);
    EXPECT_EQ(musicTip(stage), "G -  Acoustic Grand Piano");
    stage.mouse.MusicBox_MouseMove(noButton, 0, 13, 0);
    EXPECT_EQ(musicTip(stage), "");
    stage.mouse.MusicBox_MouseMove(noButton, 0, -5, 0);
    EXPECT_EQ(musicTip(stage), "") << "column -1, of which nothing can be said";
}

TEST(MusicToolTip, OfPitchZeroKeepsTheLabel) {
    TableauStage stage;
    stage.studio.view.HoverRow = 1;
    stage.studio.view.LastNoteLabel = "A";
    stage.note(0, 0, 0, 2);
    stage.move(noButton, 0, 0);
    EXPECT_EQ(musicTip(stage), "A -  Acoustic Grand Piano");
    stage.move(noButton, 1, 0); // 1000 is not above 1000, so 1001 steps are counted down: 17
    EXPECT_EQ(musicTip(stage), "D# -  Acoustic Grand Piano");
}

TEST(NoteLabel, NamesEveryNoteOfAnOctaveButC) {
    TableauStage stage;
    const Lines names{"B", "A#", "A", "G#", "G", "F#", "F", "E", "D#", "D", "C#", "C#", "B"};
    for (int pitch = 56; pitch <= 68; ++pitch) { // 56 is 5B, 67 is 5C, 68 is 4B
        stage.mouse.NoteLabel(pitch);
        EXPECT_EQ(stage.studio.view.LastNoteLabel, names[static_cast<std::size_t>(pitch - 56)])
            << pitch;
    }
    stage.mouse.NoteLabel(1060);
    EXPECT_EQ(stage.studio.view.LastNoteLabel, "G");
    stage.mouse.NoteLabel(-32768);
    EXPECT_EQ(stage.studio.view.LastNoteLabel, "G");
}

TEST(MusicFocus, DoesNothingButClearTheTipWhileAMusicRowIsSelected) {
    TableauStage stage;
    stage.area.MusicBox->setToolTip("D");
    stage.setup.values.selected[0] = false;
    stage.setup.values.selected[7] = true;
    stage.mouse.MusicBox_GotFocus();
    EXPECT_EQ(musicTip(stage), "");
    EXPECT_EQ(stage.asked(), Lines{});
}

TEST(MusicFocus, SelectsRowZeroAndClearsThePercussionRows) {
    TableauStage stage;
    stage.setup.values.selected[0] = false;
    stage.setup.values.selected[9] = true;
    stage.mouse.MusicBox_GotFocus();
    const Lines asked = stage.asked();
    ASSERT_EQ(asked.size(), 12U);
    EXPECT_EQ(asked.front(), "TrackSel(0) on");
    EXPECT_EQ(asked[1], "TrackSel(8) off");
    EXPECT_EQ(asked[2], "picture(8) off");
    EXPECT_EQ(asked.back(), "picture(0) on");
    EXPECT_FALSE(stage.setup.TrackSel(9));
}

} // namespace
} // namespace velorin

// The mouse on the percussion strip: beats made, erased and heard, and the strip resized.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

constexpr Colour black = rgb(0, 0, 0);

std::string beatTip(const TableauStage& stage) {
    return stage.area.Beatbox->toolTip().toStdString();
}

TEST(BeatPress, WithAMusicRowCurrentOnlySelectsRowEight) {
    TableauStage stage;
    stage.pressBeat(leftButton, 3, 2);

    EXPECT_EQ(stage.score.CurrentRow, 8);
    EXPECT_EQ(stage.midi(), (Lines{"0.000 close", "0.000 open 0"}));
    const Lines asked = stage.asked();
    ASSERT_EQ(asked.size(), 29U);
    EXPECT_EQ(asked[0], "TrackSel(0) off");
    EXPECT_EQ(asked[1], "picture(0) off");
    EXPECT_EQ(asked[25], "picture(12) off");
    EXPECT_EQ(asked[26], "TrackSel_MouseDown(8)");
    EXPECT_EQ(asked[27], "picture(8) on");
    EXPECT_EQ(asked[28], "TrackSel(8) on");
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
}

TEST(BeatPress, WithNoSoundChosenItDoesNothingAtAll) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.sounding.PercussionChoice = 0;
    stage.pressBeat(leftButton, 3, 2);

    EXPECT_EQ(stage.midi(), Lines{});
    EXPECT_EQ(stage.drag.MouseHeld, flagClear);
    EXPECT_EQ(stage.studio.view.HoverRow, 9) << "but for the row of the tool tip";
}

TEST(BeatPress, WhileASongPlaysNothingHappens) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.studio.run.IsPlaying = flagSet;
    stage.pressBeat(leftButton, 3, 2);
    stage.releaseBeat(rightButton, 3, 30);
    EXPECT_EQ(stage.midi(), Lines{});
    EXPECT_EQ(stage.area.Beatbox->height(), 60);
}

TEST(BeatPress, KeepsSelectionAndMarkerAndTheVelocityLeftBefore) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.sounding.ChangeInstrument(128, 8);
    stage.sounding.Velocity = 66;
    stage.score.SelectStart = 3;
    stage.score.SelectEnd = 5;
    stage.score.StartColumn = 7;
    stage.pressBeat(leftButton, 3, 2);

    EXPECT_EQ(stage.midi(), Lines{"0.000 99 23 42"}); // key 35, velocity 66
    EXPECT_EQ(stage.score.SelectStart, 3);
    EXPECT_EQ(stage.score.StartColumn, 7);
    EXPECT_EQ(stage.area.Beatbox->MousePointer(), pointerOwn);
}

TEST(BeatRelease, WritesTheBeatAndLetsTheDeviceStand) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.score.RowInstrument[8] = 130;
    stage.note(8, 5, 60, 4, 128);
    stage.note(0, 3, 60, 1, 24);
    stage.pressBeat(leftButton, 3, 2);
    stage.moveBeat(leftButton, 6, 2);
    stage.midi();
    stage.releaseBeat(leftButton, 6, 2);

    EXPECT_EQ(stage.notes(8, 2, 9), ". 57 1057 1057 1057 60 1060 .");
    EXPECT_EQ(stage.instruments(8, 2, 9), "0 130 130 130 130 128 128 0");
    // The beat itself: four note offs on row 8's own channel, as no percussion is set for it here;
    // then the column's other row.
    EXPECT_EQ(stage.midi(),
              (Lines{"0.000 88 46 00", "0.000 88 49 00", "0.000 88 4D 00", "0.000 88 52 00",
                     "0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 18", "0.000 80 43 00",
                     "0.000 80 46 00", "0.000 80 4A 00", "0.000 80 4F 00"}));
}

TEST(BeatRelease, ABandOnceDrawnStaysUntilTheRelease) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.pressBeat(leftButton, 3, 2);
    stage.moveBeat(leftButton, 8, 2);
    stage.moveBeat(leftButton, 4, 2);
    EXPECT_EQ(stage.beatPixel(8 * 12 + 10, 24 + 5), row8);
    stage.releaseBeat(leftButton, 4, 2);
    EXPECT_EQ(stage.beatPixel(8 * 12 + 10, 24 + 5), ground);
    EXPECT_EQ(stage.notes(8, 2, 5), ". 57 1057 .");
}

TEST(BeatErase, BothRightClickModesEraseAndOneShowsTheMenu) {
    for (const int mode : {0, 2}) {
        TableauStage stage;
        stage.choosePercussion(8);
        stage.studio.run.RightClickMode = static_cast<std::int16_t>(mode);
        stage.note(8, 2, 57, 4, 128);
        stage.pressBeat(rightButton, 4, 2);
        EXPECT_EQ(stage.notes(8, 2, 5), ". . . .") << mode;
        EXPECT_EQ(stage.instruments(8, 2, 5), "0 0 0 0") << mode;
    }
    TableauStage stage;
    stage.choosePercussion(8);
    stage.studio.run.RightClickMode = 1;
    stage.note(8, 2, 57, 4, 128);
    stage.pressBeat(rightButton, 4, 2);
    EXPECT_EQ(stage.desk.popups, Lines{"Command1"});
    EXPECT_EQ(stage.notes(8, 2, 2), "57");
}

TEST(BeatErase, ARightDragErasesAsItGoes) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.note(8, 2, 57);
    stage.note(8, 4, 57);
    stage.pressBeat(rightButton, 2, 2);
    stage.moveBeat(rightButton, 4, 2);
    EXPECT_EQ(stage.notes(8, 2, 4), ". . .");
}

TEST(BeatResize, ARightReleaseSetsTheHeightToItsPlaceAndTwelve) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.note(8, 3, 57);
    stage.pressBeat(rightButton, 3, 2);
    stage.percussion.Beatbox_MouseUp(rightButton, 0, 41, 90);

    EXPECT_EQ(stage.area.Beatbox->height(), 102);
    EXPECT_EQ(stage.area.Beatbox->picture.ScaleHeight(), 102);
    EXPECT_EQ(stage.notes(8, 3, 3), ".") << "the press erased";
    EXPECT_EQ(stage.beatPixel(0, 101), barColour) << "and the strip is drawn anew";
}

TEST(BeatResize, HappensInAnyModeAndWithAMusicRowCurrent) {
    TableauStage stage;
    stage.studio.run.EditMode = 2;
    stage.percussion.Beatbox_MouseUp(rightButton, 0, 5, 0);
    EXPECT_EQ(stage.area.Beatbox->height(), 12);
}

TEST(BeatResize, ANegativeHeightIsRefused) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.percussion.Beatbox_MouseUp(rightButton, 0, 5, -40);
    EXPECT_EQ(stage.area.Beatbox->height(), 60);
    stage.percussion.Beatbox_MouseUp(rightButton, 0, 5, 1e9);
    EXPECT_EQ(stage.area.Beatbox->height(), 60);
}

TEST(BeatModes, AnyButtonSetsTheMarker) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.studio.run.EditMode = 1;
    stage.scrollTo(20);
    stage.pressBeat(rightButton, 5, 0);
    EXPECT_EQ(stage.score.StartColumn, 25);
    EXPECT_EQ(stage.desk.popups, Lines{});
}

TEST(BeatModes, ASelectionOnTheStripShowsOnTheTableauOnlyAfterItsRedraw) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.studio.run.EditMode = 2;
    stage.pressBeat(leftButton, 5, 0);
    stage.moveBeat(leftButton, 9, 0);
    stage.releaseBeat(leftButton, 9, 0);

    EXPECT_EQ(stage.score.SelectStart, 5);
    EXPECT_EQ(stage.score.SelectEnd, 9);
    EXPECT_EQ(stage.score.StartColumn, 0) << "the marker stays";
    EXPECT_EQ(stage.studio.run.PlayBlockEnd, 0);
    const Colour plain = stage.musicPixel(6 * 12 + 5, 100);
    stage.music.DrawNoteArray();
    EXPECT_NE(stage.musicPixel(6 * 12 + 5, 100), plain);
}

TEST(BeatModes, APressInsideASelectionDoesNotMoveItsStart) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.studio.run.EditMode = 2;
    stage.score.SelectStart = 5;
    stage.score.SelectEnd = 9;
    stage.pressBeat(leftButton, 7, 0);
    EXPECT_EQ(stage.score.SelectStart, 5);
    stage.pressBeat(leftButton, 3, 0);
    EXPECT_EQ(stage.score.SelectStart, 3);
    stage.pressBeat(rightButton, 3, 0);
    EXPECT_EQ(stage.score.SelectStart, -1);
    EXPECT_EQ(stage.score.SelectEnd, -1);
    EXPECT_EQ(stage.desk.popups, Lines{});
}

TEST(BeatToolTip, NamesThePercussionOfTheRowUnderThePointer) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.note(8, 3, 57, 1, 128);
    int yields = 0;
    stage.host.time.plan(0, [&] { ++yields; });
    stage.moveBeat(noButton, 3, 0);
    EXPECT_EQ(beatTip(stage), "128 Acoustic Bass Drum");
    EXPECT_EQ(yields, 1);
    stage.moveBeat(noButton, 4, 0);
    EXPECT_EQ(beatTip(stage), "");
}

TEST(BeatToolTip, DoesNotYieldOverARest) {
    TableauStage stage;
    stage.choosePercussion(8);
    int yields = 0;
    stage.host.time.plan(0, [&] { ++yields; });
    stage.moveBeat(noButton, 4, 0);
    EXPECT_EQ(yields, 0);
}

TEST(BeatMove, ADragThatBeganElsewhereDoesNothing) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.moveBeat(leftButton, 4, 3);
    EXPECT_EQ(stage.drag.PriorLineBeat, 0);
    stage.moveBeat(noButton, 4, 3);
    EXPECT_EQ(stage.drag.PriorLineBeat, 3);
    EXPECT_EQ(stage.drag.PriorLine, 0) << "the music tableau remembers its own line";
}

TEST(BeatFocus, RowNineDoesNotCount) {
    TableauStage stage;
    stage.setup.values.selected[0] = false;
    stage.setup.values.selected[9] = true;
    stage.area.Beatbox->setToolTip("x");
    stage.percussion.Beatbox_GotFocus();
    EXPECT_EQ(beatTip(stage), "");
    const Lines asked = stage.asked();
    ASSERT_EQ(asked.size(), 18U);
    EXPECT_EQ(asked.front(), "TrackSel(8) on");
    EXPECT_EQ(asked[1], "TrackSel(0) off");
    EXPECT_EQ(asked.back(), "picture(8) on");
}

TEST(BeatFocus, ASelectedPercussionRowStays) {
    TableauStage stage;
    stage.setup.values.selected[11] = true;
    stage.percussion.Beatbox_GotFocus();
    EXPECT_EQ(stage.asked(), Lines{});
    stage.area.Beatbox->setToolTip("x");
    stage.percussion.Beatbox_LostFocus();
    EXPECT_EQ(beatTip(stage), "");
}

TEST(BeatStrip, ShownOrHiddenByHandItCoversTheNamesAndIsNotRedrawn) {
    TableauStage stage;
    stage.note(8, 3, 57);
    stage.percussion.DrawBeatArray();
    const bool hidden = stage.area.Beatbox->isHidden();
    stage.percussion.Check2_Click();

    EXPECT_NE(stage.area.Beatbox->isHidden(), hidden);
    EXPECT_EQ(stage.area.Beatbox->x(), 32 - 47);
    EXPECT_EQ(stage.area.Beatbox->width(), TableauStage::widthPx + 47);
    EXPECT_EQ(stage.area.Beatbox->height(), 60);
    EXPECT_EQ(stage.beatPixel(3 * 12 + 10, 24 + 5), ground);
    EXPECT_NE(stage.beatPixel(0, 5), black);
    stage.percussion.Check2_Click();
    EXPECT_EQ(stage.area.Beatbox->isHidden(), hidden);
}

} // namespace
} // namespace velorin

// How beats are drawn on the percussion strip.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

constexpr Colour row9 = rgb(255, 128, 255);

/// True if the band of a beat at column 3 shows beside the head on the line at y.
bool beatAt(const TableauStage& stage, int y, Colour colour) {
    return stage.beatPixel(3 * 12 + 11, y + 5) == colour;
}

TEST(BeatDrawing, BarLinesAreAtEveryFourthColumn) {
    TableauStage stage;
    stage.scrollTo(2);
    stage.percussion.DrawBeatArray();
    EXPECT_EQ(stage.beatPixel(24, 59), barColour);
    EXPECT_EQ(stage.beatPixel(0, 30), ground);
}

TEST(BeatDrawing, ABeatStandsOnItsLineInTheBrightColourWhicheverRowIsActive) {
    TableauStage stage;
    stage.note(8, 3, 57, 3);
    stage.percussion.DrawBeatArray();

    EXPECT_EQ(stage.beatPixel(5 * 12 + 11, 24 + 4), row8)
        << "the band ends at 11 of its last column";
    EXPECT_EQ(stage.beatPixel(5 * 12 + 11, 24 + 7), row8);
    EXPECT_NE(stage.beatPixel(6 * 12, 24 + 5), row8);
    EXPECT_EQ(stage.beatPixel(3 * 12 + 3, 24 + 3), row8) << "within the highlight's ring";
    EXPECT_NE(stage.beatPixel(3 * 12 + 5, 24), ground) << "the outline of the head";
}

TEST(BeatDrawing, FollowsTheTopPitchAndSqueezesWhatLiesBelowTheStrip) {
    TableauStage stage;
    stage.choosePercussion(8);
    stage.pressBeat(leftButton, 3, 2);
    stage.releaseBeat(leftButton, 3, 2);
    EXPECT_EQ(stage.notes(8, 3, 3), "57");
    EXPECT_TRUE(beatAt(stage, 24, row8));

    stage.studio.view.TopPitch = 60;
    stage.percussion.DrawBeatArray();
    for (int y = 0; y < 60; y += 12)
        EXPECT_FALSE(beatAt(stage, y, row8)) << "drawn at -36, out of sight";

    stage.studio.view.TopPitch = 50;
    stage.percussion.DrawBeatArray();
    EXPECT_TRUE(beatAt(stage, 48, row8)) << "84 is squeezed onto the last line of 60";
}

TEST(BeatDrawing, ABeatHeldPastTheLastVisibleColumnEndsInThatColumn) {
    TableauStage stage;
    stage.note(8, 3, 57, 20);
    stage.studio.view.LastVisibleColumn = 10;
    stage.percussion.DrawBeatArray();
    EXPECT_EQ(stage.beatPixel(10 * 12 + 11, 24 + 5), row8);
    EXPECT_EQ(stage.beatPixel(11 * 12 + 1, 24 + 5), ground);
}

TEST(BeatDrawing, RowTwelveSoundsButNeverShows) {
    TableauStage stage;
    stage.choosePercussion(12);
    stage.sounding.ChangeInstrument(130, 12);
    stage.pressBeat(leftButton, 3, 2);
    EXPECT_EQ(stage.midi(), Lines{"0.000 99 25 7F"}); // 130 - 93 = 37
    stage.releaseBeat(leftButton, 3, 2);
    EXPECT_EQ(stage.notes(12, 3, 3), "57");
    EXPECT_EQ(stage.beatPixel(3 * 12 + 10, 24 + 5), ground);
}

TEST(BeatDrawing, LaterRowsAreDrawnOnTopAndHiddenOnesAreLeftOut) {
    TableauStage stage;
    stage.note(8, 3, 57);
    stage.note(9, 3, 57);
    stage.percussion.DrawBeatArray();
    EXPECT_TRUE(beatAt(stage, 24, row9));
    stage.setup.setTrackHide(9, true);
    stage.percussion.DrawBeatArray();
    EXPECT_TRUE(beatAt(stage, 24, row8));
}

TEST(BeatDrawing, AnOrphanAtTheLeftEdgeHasAHead) {
    TableauStage stage;
    stage.note(8, 18, 57, 5);
    stage.scrollTo(20);
    stage.percussion.DrawBeatArray();
    EXPECT_NE(stage.beatPixel(5, 24), ground) << "the outline of the head";
    EXPECT_EQ(stage.beatPixel(2 * 12 + 11, 24 + 5), row8);
    EXPECT_NE(stage.beatPixel(3 * 12 + 3, 24 + 5), row8);
}

TEST(BeatDrawing, LeavesTheFillStateOfSelectionAndMarker) {
    TableauStage stage;
    stage.score.StartColumn = 100;
    stage.percussion.DrawBeatArray();
    Picture& picture = stage.area.Beatbox->picture;
    stage.score.SelectStart = 3;
    stage.score.SelectEnd = 5;
    stage.percussion.DrawBeatArray();
    EXPECT_EQ(picture.fillStyle, FillStyle::transparent);
    EXPECT_EQ(picture.fillColor, rgb(0, 0, 255));
    stage.score.StartColumn = 0;
    stage.percussion.DrawBeatArray();
    EXPECT_EQ(picture.fillStyle, FillStyle::diagonalCross);
    EXPECT_EQ(picture.fillColor, rgb(0, 0, 192)) << "the colour of row 11, the last that is drawn";
    EXPECT_EQ(stage.beatPixel(3 * 12 + 5, 30), ground) << "no tint";
}

} // namespace
} // namespace velorin

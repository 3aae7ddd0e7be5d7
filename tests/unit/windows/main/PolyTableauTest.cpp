// The lanes of chord marks: bands, snapping, painting and wiping.
#include "TableauColours.h"
#include "TableauStage.h"

#include <gtest/gtest.h>

#include <array>

namespace velorin {
namespace {

constexpr Colour grid = rgb(224, 224, 224);

/// The lane in which a press at y sets its mark, 0 for none.
int laneHitAt(double y) {
    TableauStage stage;
    stage.poly.Pic1_MouseDown(leftButton, 0, 30, y);
    for (int lane = 1; lane <= 8; ++lane) {
        if (stage.score.PolyArray.at(lane, 3) == 1)
            return lane;
    }
    return 0;
}

TEST(PolyDrawing, TheGridIsGreyAndTheBarsLieOverIt) {
    TableauStage stage;
    stage.scrollTo(2);
    stage.poly.DrawPolyTableau();
    EXPECT_EQ(stage.polyPixel(5, 7), grid);
    EXPECT_EQ(stage.polyPixel(5, 56), grid);
    EXPECT_EQ(stage.polyPixel(12, 3), grid);
    EXPECT_EQ(stage.polyPixel(24, 3), barColour);
    EXPECT_EQ(stage.polyPixel(24, 7), barColour);
    EXPECT_EQ(stage.polyPixel(5, 3), white);
}

TEST(PolyDrawing, AMarkStandsOverItsScoreColumn) {
    TableauStage stage;
    stage.score.PolyArray.write(2, 24, 1); // row 1, column 23
    stage.scrollTo(20);
    stage.poly.DrawPolyTableau();
    EXPECT_EQ(stage.polyPixel(3 * 12 + 1, 8), blue);
    EXPECT_EQ(stage.polyPixel(3 * 12 + 11, 13), blue);
    EXPECT_EQ(stage.polyPixel(3 * 12, 10), grid);
    EXPECT_EQ(stage.polyPixel(3 * 12 + 5, 14), grid);
    EXPECT_EQ(stage.polyPixel(4 * 12 + 5, 10), white);
}

TEST(PolyDrawing, OnlyAOneIsAMark) {
    TableauStage stage;
    stage.score.PolyArray.write(1, 4, 2);
    stage.poly.DrawPolyTableau();
    EXPECT_EQ(stage.polyPixel(3 * 12 + 5, 3), white);
}

TEST(PolyDrawing, StaleLanesAreDrawnAgainAndFreshOnesAreNot) {
    TableauStage stage;
    stage.poly.drawIfStale();
    stage.area.Pic1->picture.fillBox(0, 0, 5, 5, green);
    stage.poly.drawIfStale();
    EXPECT_EQ(stage.polyPixel(2, 3), green) << "nothing had changed";
    stage.score.PolyArray.write(1, 4, 1); // as a paste does it
    EXPECT_EQ(stage.polyPixel(3 * 12 + 5, 3), white);
    stage.poly.drawIfStale();
    EXPECT_EQ(stage.polyPixel(3 * 12 + 5, 3), red);
}

// What the mouse has painted in a scrolled view stays until another draw.
TEST(PolyDrawing, AMarkOfTheMouseDoesNotMakeTheLanesStale) {
    TableauStage stage;
    stage.scrollTo(20);
    stage.poly.DrawPolyTableau();
    stage.poly.Pic1_MouseDown(leftButton, 0, 30, 3);
    stage.poly.drawIfStale();
    EXPECT_EQ(stage.polyPixel(30, 3), red);
    stage.score.PolyArray.write(2, 24, 1);
    stage.poly.Pic1_MouseDown(leftButton, 0, 60, 3);
    stage.poly.drawIfStale();
    EXPECT_EQ(stage.polyPixel(30, 3), white);
    EXPECT_EQ(stage.polyPixel(3 * 12 + 5, 10), blue);
}

TEST(PolyPress, TheBandsOfTheLanesAreNotAllOfOneHeight) {
    const std::array<std::pair<double, int>, 18> hits{{{-3, 1},
                                                       {6, 1},
                                                       {7, 2},
                                                       {13, 2},
                                                       {14, 3},
                                                       {21, 3},
                                                       {22, 4},
                                                       {28, 4},
                                                       {29, 5},
                                                       {35, 5},
                                                       {36, 6},
                                                       {42, 6},
                                                       {43, 7},
                                                       {49, 7},
                                                       {50, 8},
                                                       {56, 8},
                                                       {57, 0},
                                                       {60, 0}}};
    for (const auto& [y, lane] : hits)
        EXPECT_EQ(laneHitAt(y), lane) << y;
}

TEST(PolyPress, SnapsDownAndPaintsTheBlockAtOnce) {
    TableauStage stage;
    stage.poly.Pic1_MouseDown(leftButton, 0, 30, 3);
    EXPECT_EQ(stage.marks(1, 2, 4), "0 1 0");
    EXPECT_EQ(stage.polyPixel(25, 1), red);
    EXPECT_EQ(stage.polyPixel(35, 6), red);
    EXPECT_EQ(stage.polyPixel(24, 3), grid);
    EXPECT_NE(stage.polyPixel(36, 3), red);
    EXPECT_EQ(stage.area.Pic1->picture.fillColor, red);
}

TEST(PolyPress, SnapsByTheRoundedPlace) {
    TableauStage stage;
    stage.poly.Pic1_MouseDown(leftButton, 0, 24.5, 3); // rounds to the even 24 at once
    EXPECT_EQ(stage.marks(1, 2, 4), "0 1 0");
    stage.poly.Pic1_MouseDown(leftButton, 0, 47.6, 3); // rounds to 48; 47.6 is column 3
    EXPECT_EQ(stage.marks(1, 3, 5), "1 1 0");
}

TEST(PolyPress, TheRightButtonPaintsToo) {
    TableauStage stage;
    stage.poly.Pic1_MouseDown(rightButton, 0, 30, 3);
    EXPECT_EQ(stage.marks(1, 3, 3), "1");
    stage.poly.Pic1_MouseMove(rightButton, 0, 33, 3);
    EXPECT_EQ(stage.marks(1, 3, 3), "0") << "moving with it held wipes";
    EXPECT_EQ(stage.polyPixel(25, 1), white);
}

TEST(PolyPress, InAScrolledViewTheMarkGoesByTheScreen) {
    TableauStage stage;
    stage.scrollTo(20);
    stage.poly.DrawPolyTableau();
    stage.poly.Pic1_MouseDown(leftButton, 0, 5 * 12 + 3, 3);
    EXPECT_EQ(stage.marks(1, 5, 7), "0 1 0");
    EXPECT_EQ(stage.polyPixel(5 * 12 + 5, 3), red);
    stage.poly.DrawPolyTableau();
    EXPECT_EQ(stage.polyPixel(5 * 12 + 5, 3), white) << "and is drawn elsewhere by the next redraw";
}

TEST(PolyPress, FarOutsideItDoesNothing) {
    TableauStage stage;
    for (const double x : {-1e18, -500.0, 12600.0, 1e9, 1e18})
        stage.poly.Pic1_MouseDown(leftButton, 0, x, 3);
    for (int column = 0; column < scoreColumns; ++column)
        ASSERT_EQ(stage.score.PolyArray.at(1, column), 0);
}

TEST(PolyMove, ALeftDragPaintsAlongAndDropsSomeMoves) {
    TableauStage stage;
    stage.poly.Pic1_MouseMove(leftButton, 0, 30, 3); // difference 30
    EXPECT_EQ(stage.drag.PolyDrag, 30.0);
    EXPECT_EQ(stage.marks(1, 3, 3), "1");
    stage.poly.Pic1_MouseMove(leftButton, 0, 31, 10); // difference 1: dropped
    EXPECT_EQ(stage.drag.PolyDrag, 1.0);
    EXPECT_EQ(stage.marks(2, 3, 3), "0");
    stage.poly.Pic1_MouseMove(leftButton, 0, 31, 10); // difference 30
    EXPECT_EQ(stage.marks(2, 3, 3), "1");
}

TEST(PolyMove, WithNoButtonNothingIsPainted) {
    TableauStage stage;
    stage.poly.Pic1_MouseMove(noButton, 0, 30, 3);
    EXPECT_EQ(stage.marks(1, 3, 3), "0");
    EXPECT_EQ(stage.drag.PolyDrag, 30.0);
}

TEST(PolyMove, ARightMoveOutsideTheLanesLeavesAWhiteFill) {
    TableauStage stage;
    stage.poly.Pic1_MouseMove(rightButton, 0, 30, 57);
    EXPECT_EQ(stage.area.Pic1->picture.fillColor, white);
}

TEST(PolyMove, TheToolTipNamesTheLaneRoughly) {
    TableauStage stage;
    const auto tipAt = [&](double y) {
        stage.poly.Pic1_MouseMove(noButton, 0, 0, y);
        return stage.area.Pic1->toolTip().toStdString();
    };
    EXPECT_EQ(tipAt(0), "Draw Channel 1 Polyphonics");
    EXPECT_EQ(tipAt(4), "Draw Channel 1 Polyphonics") << "a half rounds to the even 0";
    EXPECT_EQ(tipAt(5), "Draw Channel 2 Polyphonics");
    EXPECT_EQ(tipAt(12), "Draw Channel 3 Polyphonics") << "a half rounds to the even 2";
    EXPECT_EQ(tipAt(56), "Draw Channel 8 Polyphonics");
}

TEST(PolyRelease, ShowsTheRingsOfTheNewMarks) {
    TableauStage stage;
    stage.note(0, 4, 57);
    stage.music.DrawNoteArray();
    const Colour before = stage.musicPixel(4 * 12 + 5, 24 + 12);
    stage.poly.Pic1_MouseDown(leftButton, 0, 4 * 12 + 3, 3);
    EXPECT_EQ(stage.musicPixel(4 * 12 + 5, 24 + 12), before);
    stage.poly.Pic1_MouseUp(leftButton, 0, 4 * 12 + 3, 3);
    EXPECT_NE(stage.musicPixel(4 * 12 + 5, 24 + 12), before);
}

} // namespace
} // namespace velorin

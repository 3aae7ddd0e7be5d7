// Strokes: the events of a mouse at a cell.
#include "PenStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

constexpr int left = 1;
constexpr int right = 2;

TEST(StrokesTest, PressAndReleaseDrawANoteOfOneColumn) {
    PenStage stage;
    Strokes strokes({*stage.area.MusicBox, *stage.area.Beatbox, *stage.area.Pic1,
                     *stage.area.HScroll1, *stage.area.VScroll1});
    const Place place{Tableau::music, 3, 2};
    strokes.press(place, left);
    EXPECT_TRUE(strokes.isHeld());
    EXPECT_EQ(stage.studio.score.NoteArray.at(0, 3), emptyCell);
    strokes.release(place);
    EXPECT_FALSE(strokes.isHeld());
    EXPECT_EQ(stage.studio.score.NoteArray.at(0, 3), 57); // line 2 below pitch 55
    EXPECT_EQ(stage.studio.score.NoteArray.at(0, 4), emptyCell);
}

TEST(StrokesTest, AMoveBetweenMakesTheNoteLonger) {
    PenStage stage;
    Strokes& strokes = stage.pen.strokes();
    strokes.press({Tableau::music, 3, 2}, left);
    strokes.move({Tableau::music, 6, 9});
    strokes.release({Tableau::music, 6, 9});
    EXPECT_EQ(stage.studio.score.NoteArray.at(0, 3), 57);
    for (const int column : {4, 5, 6})
        EXPECT_EQ(stage.studio.score.NoteArray.at(0, column), heldCell(57)) << column;
    EXPECT_EQ(stage.studio.score.NoteArray.at(0, 7), emptyCell);
}

TEST(StrokesTest, WhatDoesNotFitDoesNothing) {
    PenStage stage;
    Strokes& strokes = stage.pen.strokes();
    strokes.release({Tableau::music, 1, 1});
    strokes.move({Tableau::music, 1, 1});
    strokes.press({Tableau::numbers, 1, 1}, left);
    EXPECT_FALSE(strokes.isHeld());
    strokes.press({Tableau::music, 1, 1}, left);
    strokes.press({Tableau::music, 2, 2}, right);
    EXPECT_EQ(strokes.heldButton(), left);
    strokes.release({Tableau::lanes, 1, 1}); // of another tableau
    EXPECT_TRUE(strokes.isHeld());
}

// The lanes keep the difference of two places, and drop a move if that is small. At column 3 the
// place is 42 pixels, so the difference of the second report of a place would be 0.
TEST(StrokesTest, EveryLaneOnTheWayIsMarked) {
    PenStage stage;
    Strokes& strokes = stage.pen.strokes();
    strokes.press({Tableau::lanes, 3, 0}, left);
    for (int lane = 1; lane < 8; ++lane)
        strokes.move({Tableau::lanes, 3, lane});
    strokes.release({Tableau::lanes, 3, 7});
    for (int lane = 1; lane <= 8; ++lane)
        EXPECT_EQ(stage.studio.score.PolyArray.at(lane, 4), 1) << lane;
}

TEST(StrokesTest, ReachIsWhatAMouseCanPointAt) {
    PenStage stage;
    Strokes& strokes = stage.pen.strokes();
    const QSize music = stage.area.MusicBox->size();
    EXPECT_EQ(strokes.reach(Tableau::music),
              (Reach{(music.width() + 5) / 12, 0, (music.height() + 5) / 12}));
    EXPECT_EQ(strokes.reach(Tableau::lanes), (Reach{(music.width() + 5) / 12, 0, 8}));
    EXPECT_TRUE(strokes.reach(Tableau::strip).isEmpty()) << "hidden";
    EXPECT_TRUE(strokes.reach(Tableau::numbers).isEmpty());
    // The strip is 2 pixels higher than the tableau and 48 high: it ends at 46, before the middle
    // of line 4 and after that of line 3.
    stage.area.Beatbox->show();
    stage.area.Beatbox->place(29, 23, 400, 48);
    EXPECT_EQ(strokes.reach(Tableau::music).firstLine, 4);
    EXPECT_EQ(strokes.reach(Tableau::strip), (Reach{33, 0, 4})); // middle of column 33 at 402
}

} // namespace
} // namespace velorin

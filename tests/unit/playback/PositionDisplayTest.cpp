// The marker's steps: what is restored, where it is drawn, and when the page turns.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

// Forty columns are in view, offsets 0 to 39; the scroll bar's value is the first column plus 20.
struct Marker : testing::Test, PlaybackStage {
    Marker() {
        studio.score.LastColumn = 1000;
        studio.run.IsPlaying = flagSet;
    }

    Lines step(std::int16_t playColumn) {
        studio.run.PlayColumn = playColumn;
        sequencer.AdvancePlayPosition();
        EXPECT_EQ(studio.run.PlayColumn, playColumn + 1);
        return asked();
    }
};

TEST_F(Marker, ItsFirstStepPutsNothingBack) {
    EXPECT_EQ(step(4), (Lines{"0.000 GetColumn 4", "0.000 marker 4"}));
    EXPECT_EQ(studio.run.MarkerSaved, flagSet);
    EXPECT_EQ(studio.run.MarkerOffset, 4);
}

TEST_F(Marker, EveryFurtherStepPutsBackWhatItCovered) {
    step(4);
    EXPECT_EQ(step(5), (Lines{"0.000 PutColumn 4", "0.000 GetColumn 5", "0.000 marker 5"}));
}

TEST_F(Marker, AtTheRightEdgeIsDrawnInPlaceAndThePageTurnsOnTheNextColumn) {
    step(38);
    EXPECT_EQ(step(39), (Lines{"0.000 PutColumn 38", "0.000 GetColumn 39", "0.000 marker 39"}));
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(step(40), (Lines{"0.000 HScroll1 60", "0.000 DrawNoteArray", "0.000 DrawBeatArray",
                               "0.000 GetColumn 0", "0.000 marker 0"}));
    EXPECT_EQ(studio.view.FirstColumn, 40);
    EXPECT_EQ(studio.view.LastVisibleColumn, 79);
    EXPECT_EQ(studio.run.MarkerOffset, 0);
}

TEST_F(Marker, ThePageTurnMovesTheBarWithoutItsRedraw) {
    desk.onHScroll1 = [this](int) {
        EXPECT_EQ(studio.view.PlayerScroll, flagSet);
        studio.view.ViewChanged = flagSet;
    };
    step(40);
    EXPECT_EQ(studio.view.PlayerScroll, flagClear);
    EXPECT_EQ(studio.view.ViewChanged, flagClear);
    EXPECT_EQ(step(41).front(), "0.000 PutColumn 0");
}

TEST_F(Marker, OnTheLastPageJumpsToTheLeftEdgeAndThenCatchesUp) {
    studio.view.FirstColumn = 940;
    studio.view.LastVisibleColumn = 979;
    EXPECT_EQ(step(980).back(), "0.000 marker 0");
    EXPECT_EQ(studio.view.FirstColumn, 960);
    EXPECT_EQ(studio.view.LastVisibleColumn, 999);
    EXPECT_EQ(step(981).back(), "0.000 marker 21");
    EXPECT_EQ(step(999).back(), "0.000 marker 39");
}

// Column 1000 is not on the last page, so the page turn shows the last page again.
TEST_F(Marker, AfterTheLastShownColumnTheLastPageTurnsToItself) {
    studio.view.FirstColumn = 960;
    studio.view.LastVisibleColumn = 999;
    EXPECT_EQ(step(1000), (Lines{"0.000 HScroll1 980", "0.000 DrawNoteArray", "0.000 DrawBeatArray",
                                 "0.000 GetColumn 0", "0.000 marker 0"}));
    EXPECT_EQ(studio.view.FirstColumn, 960);
}

TEST_F(Marker, AWindowResizeDropsTheSavedStrip) {
    step(4);
    studio.view.ViewChanged = flagSet;
    EXPECT_EQ(step(5), (Lines{"0.000 GetColumn 5", "0.000 marker 5"}));
    EXPECT_EQ(studio.view.ViewChanged, flagClear);
    EXPECT_EQ(step(6).front(), "0.000 PutColumn 5");
}

TEST_F(Marker, ADrawOfTheWholeTableauDropsTheSavedStrip) {
    step(4);
    ++desk.draws; // a Clear while the song plays
    EXPECT_EQ(step(5), (Lines{"0.000 GetColumn 5", "0.000 marker 5"}));
    EXPECT_EQ(studio.view.ViewChanged, flagClear);
    EXPECT_EQ(step(6).front(), "0.000 PutColumn 5");
}

TEST_F(Marker, ADroppedStripStaysAwayWhileTheDisplayIsOff) {
    step(4);
    studio.run.ShowNotePosition = flagClear;
    ++desk.draws;
    EXPECT_EQ(step(5), Lines{});
    EXPECT_EQ(step(6), Lines{});
}

TEST_F(Marker, SwitchedOffIsTakenAwayAndKeepsItsPlace) {
    step(4);
    studio.run.ShowNotePosition = flagClear;
    EXPECT_EQ(step(5), (Lines{"0.000 PutColumn 4"}));
    EXPECT_EQ(step(60), (Lines{"0.000 PutColumn 4"})); // and no page turns
    EXPECT_EQ(studio.run.MarkerOffset, 4);
    EXPECT_EQ(studio.view.FirstColumn, 0);
}

TEST_F(Marker, SwitchedOnDuringPlayAppearsAtTheNextColumn) {
    studio.run.ShowNotePosition = flagClear;
    step(4);
    studio.run.ShowNotePosition = flagSet;
    EXPECT_EQ(step(5).back(), "0.000 marker 5");
    EXPECT_EQ(step(6).front(), "0.000 PutColumn 5");
}

TEST_F(Marker, LeftOfTheViewIsDrawnThereAndTurnsNoPage) {
    studio.view.FirstColumn = 10;
    EXPECT_EQ(step(4), (Lines{"0.000 GetColumn -6", "0.000 marker -6"}));
    EXPECT_EQ(studio.view.FirstColumn, 10);
}

TEST_F(Marker, AStepYieldsAfterwards) {
    bool served = false;
    at(0.0, [&] { served = true; });
    step(4);
    EXPECT_TRUE(served);
}

TEST_F(Marker, AStepPastTheEndStopsTheSong) {
    studio.score.LastColumn = 4;
    step(3);
    EXPECT_EQ(studio.run.IsPlaying, flagSet);
    step(4);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

} // namespace
} // namespace velorin

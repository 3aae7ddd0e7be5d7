// The commands that empty the score, step by step.
#include "studio/ScoreCommands.h"

#include "../model/Songs.h"
#include "Recorders.h"
#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace velorin;
using namespace velorin::test;
using testing::ElementsAre;

namespace {

class ScoreCommandsTest : public testing::Test {
protected:
    ScoreCommandsTest() {
        studio.desk = &desk;
        studio.run.Form3Open = flagSet;
        studio.score.CurrentFileName = "a.sng";
        studio.score.SelectStart = 2;
        studio.score.SelectEnd = 5;
        studio.score.StartColumn = 7;
        studio.score.CurrentRow = 3;
        studio.score.Tempo = 250;
        studio.score.RowInstrument.fill(9);
        studio.score.PolyArray.write(1, 30, 1);
        putRow(studio.score, 0, "60,1060", 24);
        desk.onScroll = [this] { redrawHeldBack = studio.view.PlayerScroll.isSet(); };
    }

    scripted::ScriptedPlatform host;
    Log log;
    RecordingDesk desk{log};
    Studio studio{host.platform};
    RecordingSetup setupView{studio.setup, log};
    velorin::Setup& setup = studio.setup;
    ScoreCommands commands{studio};
    bool redrawHeldBack = false;
};

} // namespace

TEST_F(ScoreCommandsTest, ClearAllEmptiesTheScoreAndResetsTheRows) {
    setup.values.options.rows[2] = {.chord = true, .strummed = true, .volume = "5"};
    setup.values.options.rows[4].hidden = true;
    commands.Command4_Click();

    const Score& score = studio.score;
    EXPECT_EQ(score.CurrentFileName, "");
    EXPECT_EQ(score.SelectStart, -1);
    EXPECT_EQ(score.SelectEnd, -1);
    EXPECT_EQ(score.StartColumn, 0);
    EXPECT_EQ(cells(score.NoteArray, 0, 0, 1), "-1,-1");
    EXPECT_EQ(score.Tempo, 100);
    EXPECT_EQ(score.CurrentRow, 0);
    EXPECT_EQ(studio.view.DrawColor, rgb(255, 0, 0));
    EXPECT_FALSE(setup.Ch(2) || setup.Chkstrum(2));
    EXPECT_EQ(setup.vol(2), "127");
    EXPECT_TRUE(setup.TrackHide(4)) << "the hidden rows stay hidden";
    EXPECT_EQ(score.RowInstrument[3], 9);
    EXPECT_EQ(score.PolyArray.at(1, 30), 1);
    EXPECT_THAT(log, ElementsAre("TrackSel_Click 0", "first tab", "tempo bar 100", "HScroll1 20",
                                 "DrawNoteArray", "DrawBeatArray", "focus MusicBox"));
}

TEST_F(ScoreCommandsTest, ClearAllRunsTheSelectionHandlerOnceWhetherTheRowWasSelectedOrNot) {
    setupView.PlainSetupView::setTrackSel(5, true);
    commands.Command4_Click();
    EXPECT_EQ(std::count(log.begin(), log.end(), "TrackSel_Click 0"), 1);
    EXPECT_TRUE(setup.TrackSel(0));
    EXPECT_FALSE(setup.TrackSel(5));
}

TEST_F(ScoreCommandsTest, ScrollingToTheStartHoldsBackTheRedrawAndNoLonger) {
    commands.Command4_Click();
    EXPECT_TRUE(redrawHeldBack);
    EXPECT_EQ(studio.view.PlayerScroll, flagClear);
}

TEST_F(ScoreCommandsTest, ClearAllWithoutTheSetupToolbarLeavesTempoAndRows) {
    studio.run.Form3Open = flagClear;
    setup.values.options.rows[2].volume = "5";
    commands.Command4_Click();
    EXPECT_EQ(studio.score.Tempo, 250);
    EXPECT_EQ(setup.vol(2), "5");
    EXPECT_EQ(studio.score.CurrentRow, 0);
    EXPECT_THAT(log,
                ElementsAre("HScroll1 20", "DrawNoteArray", "DrawBeatArray", "focus MusicBox"));
}

TEST_F(ScoreCommandsTest, ClearForBeatsEndsOnTheFirstPercussionRow) {
    setup.values.options.rows[2] = {.chord = true, .volume = "5"};
    commands.CmdBeatactivate();

    const Score& score = studio.score;
    EXPECT_EQ(score.CurrentFileName, "");
    EXPECT_EQ(score.SelectStart, -1);
    EXPECT_EQ(score.StartColumn, 0);
    EXPECT_EQ(cells(score.NoteArray, 0, 0, 1), "-1,-1");
    EXPECT_EQ(score.Tempo, 250) << "the tempo stays";
    EXPECT_TRUE(setup.Ch(2)) << "the chord boxes stay";
    EXPECT_EQ(setup.vol(2), "127");
    EXPECT_EQ(score.CurrentRow, 8);
    EXPECT_EQ(studio.view.DrawColor, rgb(192, 0, 192));
    EXPECT_TRUE(setup.TrackSel(8));
    EXPECT_THAT(log, ElementsAre("Beatbox 48", "TrackSel_Click 8", "first tab", "HScroll1 20",
                                 "DrawNoteArray", "DrawBeatArray", "focus Beatbox"));
}

TEST_F(ScoreCommandsTest, NewScoreShowsAllRowsAndForgetsTheirInstruments) {
    setup.values.options.rows[4].hidden = true;
    setupView.PlainSetupView::setTrackSel(3, true);
    setupView.onCombo1 = [this] { studio.score.RowInstrument[0] = 0; };
    commands.mNew_Click();

    const Score& score = studio.score;
    EXPECT_EQ(score.CurrentFileName, "");
    EXPECT_EQ(cells(score.NoteArray, 0, 0, 1), "-1,-1");
    EXPECT_FALSE(setup.TrackHide(4));
    EXPECT_EQ(score.RowInstrument, (RowArray<std::int16_t>{}));
    EXPECT_EQ(score.StartColumn, 0);
    EXPECT_EQ(score.SelectStart, 2) << "the selection stays";
    EXPECT_EQ(score.Tempo, 250) << "the tempo stays";
    EXPECT_EQ(score.PolyArray.at(1, 30), 1) << "old marks apply to new notes";
    EXPECT_EQ(studio.view.DrawColor, rgb(255, 0, 0));
    EXPECT_EQ(desk.enabledRows, "+0+1+2+3+4+5+6+7+8+9+10+11+12");
    EXPECT_EQ(setupView.enabledHides, "+0+1+2+3+4+5+6+7+8+9+10+11+12-0");
    EXPECT_THAT(log,
                ElementsAre("TrackSel_Click 0", "ChangeInstrument 0 0", "Combo1 0", "HScroll1 20",
                            "DrawNoteArray", "focus MusicBox", "DrawPolyTableau"));
}

TEST_F(ScoreCommandsTest, NewScoreRunsNoHandlerForARowThatIsSelectedAlready) {
    commands.mNew_Click();
    EXPECT_EQ(std::count(log.begin(), log.end(), "TrackSel_Click 0"), 0);
}

TEST_F(ScoreCommandsTest, ClearingTheMarksInViewTakesTheEntriesOfTheColumnsShown) {
    studio.view.FirstColumn = 10;
    studio.view.VisibleColumns = 20;
    for (const int column : {9, 10, 30, 31}) {
        studio.score.PolyArray.write(1, column, 1);
        studio.score.PolyArray.write(8, column, 1);
        studio.score.PolyArray.write(0, column, 1);
    }
    commands.Comm2_Click();
    for (const int lane : {1, 8}) {
        EXPECT_EQ(studio.score.PolyArray.at(lane, 9), 1);
        EXPECT_EQ(studio.score.PolyArray.at(lane, 10), 0);
        EXPECT_EQ(studio.score.PolyArray.at(lane, 30), 0);
        EXPECT_EQ(studio.score.PolyArray.at(lane, 31), 1);
    }
    EXPECT_EQ(studio.score.PolyArray.at(0, 10), 1);
    EXPECT_TRUE(log.empty()) << "no redraw";
}

TEST_F(ScoreCommandsTest, ClearingTheMarksInViewEndsWithTheGrid) {
    studio.view.FirstColumn = 990;
    studio.view.VisibleColumns = 46;
    studio.score.PolyArray.write(3, 1000, 1);
    commands.Comm2_Click();
    EXPECT_EQ(studio.score.PolyArray.at(3, 1000), 0);
}

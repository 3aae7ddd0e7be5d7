// Stopped, playing, paused: what the buttons do in each state, where a play begins, and what a
// block of the song does differently.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct PlayState : testing::Test, PlaybackStage {
    PlayState() { write(0, "60 = = = 64 ="); }

    void play() { sequencer.PlayAndStop_Click(0); }
    void stop() { sequencer.PlayAndStop_Click(1); }
    void pauseAndPlay() {
        at(0.30, [this] { studio.run.PauseFlag = flagSet; });
        play();
        midi();
        asked();
    }
};

TEST_F(PlayState, PlayWhileTheSongPlaysDoesNothing) {
    at(0.20, [this] {
        asked();
        play();
        EXPECT_EQ(asked(), Lines{});
        EXPECT_EQ(studio.run.IsPlaying, flagSet);
    });
    play();
    EXPECT_EQ(host.time.stamp(), "0.960");
}

TEST_F(PlayState, AStopInTheYieldOfTheClickPlaysNoColumn) {
    at(0.0, [this] { stop(); });
    play();
    EXPECT_EQ(midi(), Lines{});
    EXPECT_EQ(host.time.stamp(), "0.120");
}

TEST_F(PlayState, StopLetsTheColumnComeAndThenEndsWhatSounds) {
    at(0.30, [this] { stop(); });
    play();
    EXPECT_EQ(studio.run.PlayColumn, 3);
    const Lines messages = midi();
    EXPECT_EQ(messages[4], "0.480 80 43 00");
    EXPECT_EQ(messages.size(), 8U);
    EXPECT_EQ(studio.run.PauseFlag, flagClear);
    EXPECT_EQ(studio.score.StartColumn, 0);
}

TEST_F(PlayState, StopReleasesTheControlsAtOnce) {
    at(0.30, [this] {
        asked();
        stop();
        EXPECT_EQ(asked(),
                  (Lines{"0.300 enable toolbars", "0.300 enable Wiz", "0.300 enable tableaux"}));
    });
    play();
}

TEST_F(PlayState, StoppedAndStoppedAgainOnlyReleasesTheControls) {
    stop();
    EXPECT_EQ(asked(),
              (Lines{"0.000 enable toolbars", "0.000 enable Wiz", "0.000 enable tableaux"}));
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

TEST_F(PlayState, APauseStopsBeforeTheNextColumnAndLetsTheNotesRing) {
    at(0.30, [this] { studio.run.PauseFlag = flagSet; });
    play();
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    EXPECT_EQ(studio.run.PauseFlag, flagSet);
    EXPECT_EQ(studio.score.StartColumn, 2);
    EXPECT_EQ(host.time.stamp(), "0.360");
    EXPECT_EQ(midi().back(), "0.120 90 43 7F");
    const Lines all = asked();
    EXPECT_EQ(Lines(all.end() - 4, all.end()),
              (Lines{"0.360 enable toolbars", "0.360 enable Wiz", "0.360 enable tableaux",
                     "0.360 DrawNoteArray"}));
}

TEST_F(PlayState, APauseCarriesOnAtItsColumnAndNeverEndsTheNotesFromBefore) {
    pauseAndPlay();
    at(0.0, [this] { EXPECT_EQ(studio.run.PauseFlag, flagSet); });
    play();
    EXPECT_EQ(studio.run.PauseFlag, flagClear);
    // Column 2, held since before the pause, comes at 0.480. Column 4 at 0.720 stops that note as
    // if the new play had started it, and starts the next.
    EXPECT_EQ(midi().front(), "0.720 B0 00 00");
    EXPECT_EQ(host.time.stamp(), "1.080");
}

TEST_F(PlayState, StoppingAPausedSongKeepsThePause) {
    pauseAndPlay();
    stop();
    EXPECT_EQ(studio.run.PauseFlag, flagSet);
    play();
    EXPECT_EQ(host.time.stamp(), "1.080"); // 0.360, columns 2 to 6, and the last one's length
}

TEST_F(PlayState, APauseAskedForWhileStoppedMakesTheNextPlayBeginAtTheMarker) {
    studio.run.PauseFlag = flagSet;
    studio.score.StartColumn = 5;
    play();
    EXPECT_EQ(host.time.stamp(), "0.360"); // columns 5 and 6, and the last one's length
}

TEST_F(PlayState, APlayThatIsNoResumeBeginsAtColumn0WhereverTheMarkerIs) {
    studio.score.StartColumn = 5;
    play();
    EXPECT_EQ(host.time.stamp(), "0.960");
}

TEST_F(PlayState, StopAndPauseTogetherPause) {
    at(0.30, [this] {
        studio.run.PauseFlag = flagSet;
        stop();
    });
    play();
    EXPECT_EQ(studio.score.StartColumn, 2);
    EXPECT_EQ(studio.run.PauseFlag, flagSet);
}

TEST_F(PlayState, AStartColumnOutOfViewComesToTheLeftEdge) {
    studio.run.PauseFlag = flagSet;
    studio.score.StartColumn = 40;
    play();
    EXPECT_EQ(studio.view.FirstColumn, 40);
    EXPECT_EQ(studio.view.LastVisibleColumn, 79);
    EXPECT_EQ(asked()[3], "0.000 HScroll1 60");
}

TEST_F(PlayState, AStartColumnInViewLeavesTheView) {
    studio.view.FirstColumn = 3;
    studio.view.LastVisibleColumn = 42;
    studio.run.PauseFlag = flagSet;
    studio.score.StartColumn = 42;
    play();
    EXPECT_EQ(studio.view.FirstColumn, 3);
}

TEST_F(PlayState, AStartColumnLeftOfTheViewBringsItBack) {
    studio.view.FirstColumn = 50;
    studio.view.LastVisibleColumn = 89;
    at(0.05, [this] { EXPECT_EQ(studio.view.FirstColumn, 0); });
    play();
}

TEST_F(PlayState, AStartColumnNearTheEndShowsTheLastPage) {
    studio.run.PauseFlag = flagSet;
    studio.score.StartColumn = 980;
    play();
    EXPECT_EQ(studio.view.FirstColumn, 960);
    EXPECT_EQ(studio.view.LastVisibleColumn, 999);
}

TEST_F(PlayState, TheBarsOwnHandlerDoesNotSpoilTheMarker) {
    desk.onHScroll1 = [this](int) { studio.view.ViewChanged = flagSet; };
    at(0.05, [this] { EXPECT_EQ(studio.view.ViewChanged, flagClear); });
    play();
}

TEST_F(PlayState, RewindGoesBackToTheBeginning) {
    studio.view.FirstColumn = 100;
    studio.view.LastVisibleColumn = 139;
    studio.score.StartColumn = 120;
    sequencer.RewindBut_Click();
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(studio.view.LastVisibleColumn, 39);
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(asked(), (Lines{"0.000 clear", "0.000 DrawNoteArray", "0.000 DrawBeatArray",
                              "0.000 HScroll1 20"}));
}

TEST_F(PlayState, RewindDoesNothingWhileTheSongPlays) {
    at(0.30, [this] {
        asked();
        sequencer.RewindBut_Click();
        EXPECT_EQ(asked(), Lines{});
    });
    play();
}

TEST_F(PlayState, RewindOfAPausedSongMakesItResumeAtColumn0) {
    pauseAndPlay();
    sequencer.RewindBut_Click();
    play();
    EXPECT_EQ(host.time.stamp(), "1.320"); // 0.360, and all seven columns and one more
}

TEST_F(PlayState, TheProgramsEndEndsThePlayAtOnce) {
    at(0.20, [this] { host.time.end(); });
    play();
    asked();
    EXPECT_EQ(host.time.stamp(), "0.200");
    EXPECT_EQ(midi().back(), "0.120 90 43 7F");
    studio.run.IsPlaying = flagClear;
    play();
    EXPECT_EQ(asked(), (Lines{"0.200 disable Wiz", "0.200 disable tableaux"}));
}

TEST_F(PlayState, TheProgramsEndWhileARecordingIsSavedEndsThePlayThere) {
    studio.run.RecordingFlag = flagSet;
    desk.onRecordcontrol = [this] { host.time.end(); };
    play();
    EXPECT_EQ(asked().back(), "0.960 Recordcontrol");
}

struct Selection : PlayState {};

TEST_F(Selection, OfOneColumnOrNotMadeYetDoesNothing) {
    playBlock(0, 0);
    playBlock(4, 4);
    playBlock(5, 3);
    EXPECT_EQ(asked(), Lines{});
    EXPECT_EQ(host.time.stamp(), "0.000");
    EXPECT_EQ(studio.run.PlayingSelection, flagClear);
}

TEST_F(Selection, PlaysFromItsFirstColumnThroughItsLast) {
    studio.score.SelectStart = 4;
    studio.score.SelectEnd = 5;
    studio.score.StartColumn = 7;
    at(0.10, [this] { EXPECT_EQ(studio.run.PlayingSelection, flagSet); });
    playBlock(4, 5);
    EXPECT_EQ(midi()[3], "0.120 90 3F 7F");
    EXPECT_EQ(host.time.stamp(), "0.360");
    EXPECT_EQ(studio.score.LastColumn, 5);
    EXPECT_EQ(studio.score.SelectStart, 4);
    EXPECT_EQ(studio.score.SelectEnd, 5);
    EXPECT_EQ(studio.score.StartColumn, 7);
    EXPECT_EQ(studio.run.PlayBlockEnd, 5);
    EXPECT_EQ(studio.run.PlayingSelection, flagClear);
    EXPECT_EQ(asked().back(), "0.360 enable tableaux");
}

TEST_F(Selection, WhatSoundsAtItsEndIsEndedAfterTheLoop) {
    playBlock(4, 5);
    const Lines messages = midi();
    EXPECT_EQ(messages[4], "0.360 80 3F 00");
}

TEST_F(Selection, AlwaysClearsAPause) {
    studio.run.PauseFlag = flagSet;
    playBlock(4, 5);
    EXPECT_EQ(studio.run.PauseFlag, flagClear);
}

TEST_F(Selection, APauseWithinItLeavesItMarkedAsPlaying) {
    at(0.10, [this] { studio.run.PauseFlag = flagSet; });
    playBlock(3, 5);
    EXPECT_EQ(studio.run.PlayingSelection, flagSet);
    EXPECT_EQ(studio.score.StartColumn, 3);
}

TEST_F(Selection, KeepsTheProgressCount) {
    studio.run.RecordToolbarOpen = flagSet;
    playBlock(4, 5);
    EXPECT_EQ(studio.run.ProgressCount, 2);
}

TEST_F(Selection, EndsARecordingBeforeItReleasesTheControls) {
    studio.run.RecordingFlag = flagSet;
    desk.onRecordcontrol = [this] { EXPECT_EQ(studio.run.PlayingSelection, flagSet); };
    playBlock(4, 5);
    const Lines all = asked();
    EXPECT_EQ(*(all.end() - 4), "0.360 Recordcontrol");
    EXPECT_EQ(studio.run.RecordingFlag, flagClear);
}

} // namespace
} // namespace velorin

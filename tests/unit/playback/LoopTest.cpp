// The three forms of looping: with the marker on each pass begins inside the one before, with it
// off the song repeats in one pass, and a block begins again as a block.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

// A note only in column 0: a pass has one column, and the next column is that of the inner pass.
struct Loop : testing::Test, PlaybackStage {
    Loop() {
        write(0, "60");
        studio.run.LoopSong = flagSet;
    }

    void play() { sequencer.PlayAndStop_Click(0); }

    [[nodiscard]] long count(const Lines& lines, const std::string& what) const {
        return std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
            return line.substr(line.find(' ') + 1) == what;
        });
    }
};

TEST_F(Loop, EachPassBeginsInsideTheOneBeforeAndHasItsOwnLastSteps) {
    at(0.30, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(asked(),
              (Lines{
                  "0.000 disable Wiz",     "0.000 disable tableaux",                        //
                  "0.000 GetColumn 0",     "0.000 HScroll1 20",      "0.000 DrawNoteArray", //
                  "0.120 GetColumn 0",     "0.120 marker 0",                                //
                  "0.120 GetColumn 0",     "0.120 HScroll1 20",      "0.120 DrawNoteArray", //
                  "0.240 GetColumn 0",     "0.240 marker 0",                                //
                  "0.240 GetColumn 0",     "0.240 HScroll1 20",      "0.240 DrawNoteArray", //
                  "0.360 GetColumn 0",     "0.360 marker 0",                                //
                  "0.480 DrawNoteArray",   "0.480 enable toolbars",  "0.480 enable Wiz",    //
                  "0.480 enable tableaux",                                                  //
                  "0.600 DrawNoteArray",   "0.600 enable toolbars",  "0.600 enable Wiz",    //
                  "0.600 enable tableaux",                                                  //
                  "0.720 DrawNoteArray",   "0.720 enable toolbars",  "0.720 enable Wiz",    //
                  "0.720 enable tableaux",
              }));
}

// A new pass does not know which notes the one before has started: there is no note off between
// them.
TEST_F(Loop, EachPassStartsItsNotesAgainAndEachEndsTheLast) {
    at(0.20, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(midi(),
              (Lines{"0.120 B0 00 00", "0.120 B0 20 00", "0.120 C0 00", "0.120 90 43 7F",
                     "0.240 B0 00 00", "0.240 B0 20 00", "0.240 C0 00", "0.240 90 43 7F",
                     "0.360 80 43 00", "0.360 80 46 00", "0.360 80 4A 00",
                     "0.360 80 4F 00", //
                     "0.480 80 43 00", "0.480 80 46 00", "0.480 80 4A 00", "0.480 80 4F 00"}));
}

TEST_F(Loop, AStopIsForgottenWhereTheSongBeginsAgain) {
    at(0.30, [this] { sequencer.PlayAndStop_Click(1); }); // in the wait for column 0 of pass 3
    at(0.50, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(count(midi(), "90 43 7F"), 5); // 0.120, 0.240, 0.360, 0.480, 0.600
}

TEST_F(Loop, AHandlerBetweenThePassesMakesTheOuterOneGoOn) {
    int redraws = 0;
    desk.onDrawNoteArray = [&] {
        // The third redraw belongs to the inner pass's end steps; two yields follow it.
        if (++redraws == 3)
            at(0.0, [this] { studio.run.IsPlaying = flagSet; });
    };
    at(0.20, [this] { studio.run.LoopSong = flagClear; });
    play();
    // The inner pass is over at 0.360; the outer one plays column 1 and only then ends.
    EXPECT_EQ(count(asked(), "marker 1"), 1);
    EXPECT_EQ(host.time.stamp(), "0.600");
    EXPECT_EQ(studio.run.PlayColumn, 2);
}

TEST_F(Loop, APauseInAnInnerPassLetsTheOuterOnesRunTheirLastSteps) {
    at(0.20, [this] { studio.run.PauseFlag = flagSet; });
    play();
    const Lines all = asked();
    EXPECT_EQ(Lines(all.end() - 8, all.end()),
              (Lines{"0.240 enable toolbars", "0.240 enable Wiz", "0.240 enable tableaux",
                     "0.240 DrawNoteArray", //
                     "0.360 DrawNoteArray", "0.360 enable toolbars", "0.360 enable Wiz",
                     "0.360 enable tableaux"}));
    EXPECT_EQ(studio.run.PauseFlag, flagSet);
    EXPECT_EQ(studio.score.StartColumn, 0); // the outer pass reset the paused place
}

TEST_F(Loop, TheProgressCountGoesOnFromPassToPassAndIsSeenAgainBetweenTheLastSteps) {
    write(0, ". 60");
    studio.run.RecordToolbarOpen = flagSet;
    at(0.50, [this] { studio.run.LoopSong = flagClear; });
    play();
    Lines shown;
    for (const std::string& line : asked()) {
        if (line.find("progress") != std::string::npos)
            shown.push_back(line);
    }
    // Columns 0, 1 of the first pass; its column 2 counts only when the second pass has ended.
    EXPECT_EQ(shown, (Lines{"0.120 progress 0.500000 \"50 %\"", "0.240 progress 1.000000 \"100 %\"",
                            "0.480 progress 1.500000 \"150 %\"", "0.600 progress 2.000000",
                            "0.720 progress 2.500000", "0.840 end progress",
                            "0.840 progress 0.500000 \"50 %\"", "0.960 end progress"}));
}

TEST_F(Loop, ARecordingEndsWithTheInnermostPass) {
    studio.run.RecordingFlag = flagSet;
    at(0.20, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(count(asked(), "Recordcontrol"), 1);
}

TEST_F(Loop, APlayClickedInTheLastStepsIsAPlayOfItsOwn) {
    at(0.20, [this] { studio.run.LoopSong = flagClear; });
    at(0.30, [this] { play(); }); // in the inner pass's last wait, until 0.360
    play();
    // The nested play: column 0 at 0.420, over at 0.540. It restarted the stopwatch, which then
    // shows the 0.240 that the inner pass waits for; the outer pass waits once more.
    EXPECT_EQ(host.time.stamp(), "0.660");
    const Lines notes = midi();
    EXPECT_EQ(count(notes, "90 43 7F"), 3);
    EXPECT_EQ(count(notes, "80 43 00"), 3);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

TEST_F(Loop, WithTheMarkerOffTheSongGoesRoundInOnePass) {
    studio.run.ShowNotePosition = flagClear;
    at(0.30, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(asked(), (Lines{"0.000 disable Wiz", "0.000 disable tableaux", "0.000 GetColumn 0",
                              "0.000 HScroll1 20", "0.000 DrawNoteArray", "0.240 PutColumn 0",
                              "0.360 PutColumn 0", "0.480 DrawNoteArray", "0.480 enable toolbars",
                              "0.480 enable Wiz", "0.480 enable tableaux"}));
}

TEST_F(Loop, WithTheMarkerOffANoteIsEndedAcrossTheTurn) {
    studio.run.ShowNotePosition = flagClear;
    at(0.20, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(midi(), (Lines{"0.120 B0 00 00", "0.120 B0 20 00", "0.120 C0 00", "0.120 90 43 7F",
                             "0.240 80 43 00", "0.240 80 46 00", "0.240 80 4A 00", "0.240 80 4F 00",
                             "0.240 90 43 7F", "0.360 80 43 00", "0.360 80 46 00", "0.360 80 4A 00",
                             "0.360 80 4F 00"}));
}

struct LoopedBlock : Loop {
    LoopedBlock() {
        write(0, "60 61 62 63");
        studio.run.PlayBlockStart = 2;
        studio.run.PlayBlockEnd = 3;
        studio.run.IsPlaying = flagSet;
    }
};

TEST_F(LoopedBlock, BeginsAgainAsABlock) {
    at(0.30, [this] { studio.run.LoopSong = flagClear; });
    sequencer.PlaySelection();
    const Lines messages = midi();
    EXPECT_EQ(count(messages, "90 41 7F"), 2); // index 62 in column 2
    EXPECT_EQ(count(messages, "90 43 7F"), 0); // column 0 is not played
    EXPECT_EQ(studio.run.PlayingSelection, flagClear);
    EXPECT_EQ(studio.run.PlayBlockEnd, 3);
}

TEST_F(LoopedBlock, WithTheMarkerOffGoesOnAtColumn0) {
    studio.run.ShowNotePosition = flagClear;
    at(0.30, [this] { studio.run.LoopSong = flagClear; });
    sequencer.PlaySelection();
    EXPECT_EQ(count(midi(), "90 43 7F"), 1);
}

TEST_F(LoopedBlock, ThatIsTakenAwayMeanwhileEndsTheBlockAtItsNextColumn) {
    at(0.05, [this] { studio.run.PlayBlockEnd = 0; });
    at(0.40, [this] { studio.run.LoopSong = flagClear; });
    sequencer.PlaySelection();
    // No inner pass can begin, so this one goes on past its end, column by column.
    EXPECT_EQ(studio.run.PlayColumn, 6);
    EXPECT_EQ(host.time.stamp(), "0.600");
}

// Simulates days of looping. The stack is measured at the redraw of each pass.
TEST_F(Loop, AHundredThousandPassesDoNotLetTheStackGrow) {
    studio.score.Tempo = 300;
    studio.run.ShowNotePosition = flagSet;
    std::uintptr_t lowest = UINTPTR_MAX;
    std::uintptr_t highest = 0;
    long redraws = 0;
    desk.onDrawNoteArray = [&] {
        const char here = 0;
        const auto place = reinterpret_cast<std::uintptr_t>(&here);
        lowest = std::min(lowest, place);
        highest = std::max(highest, place);
        ++redraws;
        asked();
        midi();
    };
    // Each pass is one column of 40 ms: the 100,000th is in its wait at 3,999.98 s.
    at(3999.98, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(redraws, 200'000); // one at the start and one at the end of each pass
    EXPECT_LT(highest - lowest, 4096U);
    // The end steps take as long again, and a little more: at thousands of seconds, numbers in
    // single precision are a quarter of a millisecond apart.
    EXPECT_GT(host.time.now(), 8000 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

} // namespace
} // namespace velorin

// A song from its first column to its end: its messages, their times, and its calls to the windows.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

#include <limits>

namespace velorin {
namespace {

struct Song : testing::Test, PlaybackStage {
    void play() { sequencer.PlayAndStop_Click(0); }
};

/// Leaves out the messages that select an instrument.
Lines notesOf(const Lines& messages) {
    Lines notes;
    for (const std::string& line : messages) {
        const char kind = line[line.find(' ') + 1];
        if (kind == '8' || kind == '9')
            notes.push_back(line);
    }
    return notes;
}

// Tempo 100 is 0.120 s a column; the first column comes after the first wait. Keys: index 60 is 67,
// hex 43; its note off is followed by those of the start chord, 46, 4A and 4F. Index 64 is 63, hex
// 3F.
TEST_F(Song, SendsProgramThenNotesColumnByColumn) {
    write(0, "60 = . 64", 24);
    play();
    EXPECT_EQ(midi(),
              (Lines{"0.120 B0 00 00", "0.120 B0 20 00", "0.120 C0 18", "0.120 90 43 7F",
                     "0.360 80 43 00", "0.360 80 46 00", "0.360 80 4A 00",
                     "0.360 80 4F 00", //
                     "0.480 90 3F 7F", //
                     "0.600 80 3F 00", "0.600 80 42 00", "0.600 80 46 00", "0.600 80 4B 00"}));
    EXPECT_EQ(host.time.stamp(), "0.720");
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    EXPECT_EQ(studio.score.LastColumn, 4);
}

TEST_F(Song, LocksTheTableauxWalksTheMarkerAndReleasesThem) {
    write(0, "60 64");
    play();
    EXPECT_EQ(asked(), (Lines{"0.000 disable Wiz", "0.000 disable tableaux", "0.000 GetColumn 0",
                              "0.000 HScroll1 20", "0.000 DrawNoteArray",                 //
                              "0.120 GetColumn 0", "0.120 marker 0",                      //
                              "0.240 PutColumn 0", "0.240 GetColumn 1", "0.240 marker 1", //
                              "0.360 PutColumn 1", "0.360 GetColumn 2", "0.360 marker 2", //
                              "0.480 DrawNoteArray", "0.480 enable toolbars", "0.480 enable Wiz",
                              "0.480 enable tableaux"}));
}

TEST_F(Song, AnEmptyScorePlaysColumn0AloneAndStops) {
    play();
    EXPECT_EQ(studio.score.LastColumn, 0);
    EXPECT_EQ(studio.run.PlayColumn, 1);
    EXPECT_EQ(host.time.stamp(), "0.240");
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(Song, ANoteInColumn0AloneIsEndedAfterTheLoop) {
    write(0, "60");
    play();
    EXPECT_EQ(notesOf(midi()), (Lines{"0.120 90 43 7F", "0.240 80 43 00", "0.240 80 46 00",
                                      "0.240 80 4A 00", "0.240 80 4F 00"}));
}

TEST_F(Song, ANewCellRightAfterANoteRestartsIt) {
    write(0, "60 60");
    studio.run.PlayColumn = 1;
    sequencer.LastCell.fill(emptyCell);
    sequencer.LastCell[0] = 60;
    sequencer.LastInstrument.fill(0);
    sequencer.PlayNotes();
    EXPECT_EQ(midi(), (Lines{"0.000 80 43 00", "0.000 80 46 00", "0.000 80 4A 00", "0.000 80 4F 00",
                             "0.000 90 43 7F"}));
}

TEST_F(Song, AHeldCellAfterARestSoundsNothingButIsStoppedWhereItEnds) {
    studio.score.NoteArray.write(0, 1, 1060);
    write(1, ". . . 60");
    play();
    EXPECT_EQ(notesOf(midi()).front(), "0.360 80 43 00");
}

TEST_F(Song, ThePitchStoppedIsThatOfTheLastCell) {
    write(0, "60");
    studio.score.NoteArray.write(0, 1, 1064);
    write(1, ". . . 60");
    play();
    EXPECT_EQ(notesOf(midi())[1], "0.360 80 3F 00");
}

TEST_F(Song, AnInstrumentIsSentOnlyWithANoteAndOnlyIfItDiffers) {
    write(0, "60 . 60", 5);
    write(0, "60 =", 6, 4);
    studio.score.InstrumentArray.write(0, 5, 9); // under a held cell
    play();
    Lines programs;
    for (const std::string& line : midi()) {
        if (line.find(" C0 ") != std::string::npos)
            programs.push_back(line);
    }
    EXPECT_EQ(programs, (Lines{"0.120 C0 05", "0.600 C0 06"}));
}

TEST_F(Song, ARowsVolumeIsReadAtEachColumn) {
    write(0, "60 60 60 60 60");
    setup.options.rows[0].volume = "50";
    at(0.20, [this] { setup.options.rows[0].volume = "loud"; });
    at(0.30, [this] { setup.options.rows[0].volume = "99999"; });
    at(0.45, [this] { setup.options.rows[0].volume = " 64.5 of 127"; });
    play();
    Lines starts;
    for (const std::string& line : notesOf(midi())) {
        if (line.find(" 90 ") != std::string::npos)
            starts.push_back(line);
    }
    EXPECT_EQ(starts, (Lines{"0.120 90 43 32", "0.240 90 43 00", "0.360 90 43 7F", "0.480 90 43 40",
                             "0.600 90 43 40"}));
}

TEST_F(Song, Row9KeepsTheVelocityOfTheRowBefore) {
    setup.options.rows[8].volume = "50";
    write(9, "60", 130);
    sequencer.LastCell.fill(emptyCell);
    sequencer.PlayNotes();
    EXPECT_EQ(midi(), (Lines{"0.000 99 25 32"}));
}

TEST_F(Song, AStrumHoldsTheRowsBelowAndMakesTheSongLater) {
    setup.options.rows[0].chord = true;
    setup.options.rows[0].strummed = true;
    write(0, "60");
    write(1, "60 . 60");
    play();
    EXPECT_EQ(notesOf(midi()),
              (Lines{"0.120 90 43 6C", "0.165 90 46 46", "0.200 90 4A 46", "0.235 90 4F 46",
                     "0.235 91 43 7F", //
                     "0.355 80 43 00", "0.355 80 46 00", "0.355 80 4A 00", "0.355 80 4F 00",
                     "0.355 81 43 00", "0.355 81 46 00", "0.355 81 4A 00", "0.355 81 4F 00",
                     "0.475 91 43 7F", //
                     "0.595 81 43 00", "0.595 81 46 00", "0.595 81 4A 00", "0.595 81 4F 00"}));
}

TEST_F(Song, AChordThatRunsOutOfKeysDoesNotStopTheOtherRows) {
    setup.options.rows[0].chord = true;
    write(0, "0 .");
    write(1, "60");
    sequencer.LastCell.fill(emptyCell);
    sequencer.PlayNotes();
    EXPECT_EQ(notesOf(midi()), (Lines{"0.000 90 7F 6C", "0.000 91 43 7F"}));
}

TEST_F(Song, ARowHiddenAtTheStartIsNotServedAndDoesNotLengthenTheSong) {
    write(0, "60");
    write(1, ". . . . 60");
    setup.options.rows[1].hidden = true;
    play();
    EXPECT_EQ(studio.score.LastColumn, 0);
    EXPECT_EQ(notesOf(midi()).back(), "0.240 80 4F 00");
}

TEST_F(Song, ARowHiddenDuringPlayIsNeverEnded) {
    write(0, "60 = =");
    write(1, "60 = =");
    at(0.20, [this] { setup.options.rows[0].hidden = true; });
    play();
    EXPECT_EQ(notesOf(midi()), (Lines{"0.120 90 43 7F", "0.120 91 43 7F", "0.480 81 43 00",
                                      "0.480 81 46 00", "0.480 81 4A 00", "0.480 81 4F 00"}));
}

TEST_F(Song, ARowShownAgainIsServedFromTheCellThatItHadBefore) {
    write(0, "60 . . 64");
    at(0.20, [this] { setup.options.rows[0].hidden = true; });
    at(0.30, [this] { setup.options.rows[0].hidden = false; });
    play();
    EXPECT_EQ(notesOf(midi())[1], "0.360 80 43 00");
}

TEST_F(Song, AfterTheGridEverythingIsEmpty) {
    write(0, "60", 0, 1000);
    studio.run.PlayColumn = 1000;
    sequencer.LastCell.fill(emptyCell);
    sequencer.PlayNotes();
    EXPECT_EQ(notesOf(midi()), (Lines{"0.000 90 43 7F"}));
    sequencer.FindLastColumn();
    EXPECT_EQ(studio.score.LastColumn, 1001);
    studio.run.PlayColumn = 1001;
    sequencer.PlayNotes();
    EXPECT_EQ(notesOf(midi()).front(), "0.000 80 43 00");
}

TEST_F(Song, TheLastColumnThereCouldBeDoesNotWrapAround) {
    studio.run.PlayColumn = std::numeric_limits<std::int16_t>::max();
    studio.run.LoopSong = flagClear;
    sequencer.AdvancePlayPosition();
    EXPECT_EQ(studio.run.PlayColumn, std::numeric_limits<std::int16_t>::max());
}

TEST_F(Song, ColumnTimeIs12ByTempoInSinglePrecision) {
    for (int tempo = 20; tempo <= 300; ++tempo) {
        studio.score.Tempo = static_cast<std::int16_t>(tempo);
        sequencer.PlaySong2();
        EXPECT_EQ(sequencer.ColumnTime, static_cast<float>(12.0 / tempo)) << tempo;
    }
    EXPECT_EQ(sequencer.ColumnTime, 0.04F);
}

TEST_F(Song, ATempoOf0KeepsTheColumnTimeOfThePlayBefore) {
    sequencer.ColumnTime = 0.25F;
    studio.score.Tempo = 0;
    play();
    EXPECT_EQ(sequencer.ColumnTime, 0.25F);
}

TEST_F(Song, ATempoChangeWaitsForTheNextStart) {
    write(0, "60 = = =");
    at(0.20, [this] { studio.score.Tempo = 300; });
    play();
    EXPECT_EQ(host.time.stamp(), "0.720");
}

TEST_F(Song, WithoutAStopwatchItEndsAtOnceAndReleasesTheControls) {
    write(0, "60 64");
    sequencer.PlayTimer = 7;
    play();
    EXPECT_EQ(host.time.stamp(), "0.000");
    EXPECT_EQ(midi(), Lines{});
    EXPECT_EQ(asked().back(), "0.000 enable tableaux");
}

TEST_F(Song, ItsEndTakesTheSelectionAndTheMarkerAway) {
    studio.score.SelectStart = 3;
    studio.score.SelectEnd = 5;
    studio.score.StartColumn = 4;
    studio.run.PlayBlockStart = 3;
    studio.run.PlayBlockEnd = 5;
    play();
    EXPECT_EQ(studio.score.SelectStart, -1);
    EXPECT_EQ(studio.score.SelectEnd, -1);
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(studio.run.PlayBlockStart, 0);
    EXPECT_EQ(studio.run.PlayBlockEnd, 0);
}

TEST_F(Song, ItsEndEndsTheRecordingBeforeTheControlsAreReleased) {
    studio.run.RecordingFlag = flagSet;
    desk.onRecordcontrol = [this] { EXPECT_EQ(studio.run.RecordingFlag, flagClear); };
    play();
    const Lines all = asked();
    const Lines last(all.end() - 5, all.end());
    EXPECT_EQ(last, (Lines{"0.240 DrawNoteArray", "0.240 Recordcontrol", "0.240 enable toolbars",
                           "0.240 enable Wiz", "0.240 enable tableaux"}));
}

} // namespace
} // namespace velorin

// The tempo and the columns that a file gets.
#include "Song.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velorin::importing::test {
namespace {

/// A scale of `count` notes, one after the other.
Song scale(int count, int ticks) {
    Song song;
    for (int i = 0; i < count; ++i)
        song.note(i * ticks, 60 + i % 8, ticks);
    return song;
}

TEST(AGrid, OfSixteenthsHasFourColumnsToAQuarter) {
    const Import import = scale(32, sixteenth).tempo(0, 100.0).import();
    ASSERT_EQ(import.pieces.size(), 1U);
    EXPECT_EQ(import.pieces[0].score.Tempo, 80); // 12 s / 80 is 0.15 s, a quarter of 0.6 s
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 4.0);
    EXPECT_EQ(rowText(import.pieces[0].score, 0, 6), "60 61 62 63 64 65");
    EXPECT_EQ(import.account.exact, 32);
}

TEST(AGrid, IsAsCoarseAsTheNotesAllow) {
    EXPECT_EQ(scale(32, 2 * sixteenth).import().pieces[0].columnsPerBeat, 2.0);
    EXPECT_EQ(scale(32, quarter).import().pieces[0].columnsPerBeat, 1.0);
}

TEST(AGrid, OfTripletsHasThreeColumnsToAQuarter) {
    const Import import = scale(30, quarter / 3).import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 3.0);
    EXPECT_EQ(import.pieces[0].score.Tempo, 72);
}

TEST(AGrid, OfSwungEighthsHasThreeColumnsToAQuarter) {
    Song song;
    for (int beat = 0; beat < 32; ++beat) {
        song.note(beat * quarter, 60, 320);
        song.note(beat * quarter + 320, 64, 160);
    }
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 3.0);
    EXPECT_EQ(rowText(import.pieces[0].score, 0, 6), "60 = 64 60 = 64");
}

TEST(AGrid, OfSixteenthsAndTripletsHasTwelveColumnsToAQuarter) {
    Song song = scale(64, sixteenth);
    for (int i = 0; i < 48; ++i)
        song.note((i + 48) * quarter / 3, 60 + i % 8, quarter / 3);
    EXPECT_EQ(song.import().pieces[0].columnsPerBeat, 12.0);
}

TEST(AGrid, IsFinerIfDrumsWouldBeLost) {
    Song song; // sixteenths, and a short roll in thirty-seconds: 6 of 206 beats
    for (int i = 0; i < 200; ++i)
        song.note(i * sixteenth, 38, 30, 9);
    for (int i = 0; i < 6; ++i)
        song.note(i * sixteenth + sixteenth / 2, 38, 30, 9);
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 8.0);
    EXPECT_EQ(import.account.kept(), 206);
}

TEST(AGrid, RoundsTheTempoAndSaysSo) {
    const Import import = scale(32, sixteenth).tempo(0, 113.0).import();
    EXPECT_EQ(import.pieces[0].score.Tempo, 90); // 90.4
    EXPECT_NEAR(import.pieces[0].speed, 90.0 / 90.4, 1e-4);
    EXPECT_EQ(import.account.exact, 32); // a change of speed moves no note in the bar
}

TEST(AGrid, MovesWithNotesThatAreAllLate) {
    Song song;
    for (int i = 0; i < 32; ++i)
        song.note(i * sixteenth + 30, 60 + i % 8, sixteenth); // 30 ticks are 31 ms
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 4.0);
    EXPECT_EQ(import.account.exact, 32);
}

TEST(AGrid, BeginsANewScoreWithATempoThatLasts) {
    // 20 s at 120 beats per minute, then 20 s at 90.
    const Import import =
        scale(40 * 4 + 30 * 4, sixteenth).tempo(0, 120.0).tempo(40 * quarter, 90.0).import();
    ASSERT_EQ(import.pieces.size(), 2U);
    EXPECT_EQ(import.pieces[0].score.Tempo, 96);
    EXPECT_EQ(import.pieces[1].score.Tempo, 72);
    EXPECT_DOUBLE_EQ(import.pieces[1].fromSeconds, 20.0);
    EXPECT_EQ(import.account.exact, 280);
}

TEST(AGrid, FollowsAShortRitardandoInTime) {
    Song song = scale(41 * 4, sixteenth).tempo(0, 120.0);
    song.tempo(38 * quarter, 80.0).tempo(39 * quarter, 60.0).tempo(40 * quarter, 40.0);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 1U);
    EXPECT_EQ(import.account.kept(), 164);
    // The last sixteenth begins 19 + 0.75 + 1 + 1.125 s after the first, and a column is 0.125 s.
    const double columns = (19.0 + 0.75 + 1.0 + 1.125) / (12.0 / import.pieces[0].score.Tempo);
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, static_cast<int>(columns + 0.5))));
}

TEST(AGrid, OfAPlayedFileHasEvenTimes) {
    Song song;
    std::uint32_t random = 1;
    for (int i = 0; i < 200; ++i) {
        random = random * 1664525 + 1013904223;
        song.note(i * 100 + (random >> 16) % 60, 60 + i % 12, 60);
    }
    const Import import = song.import();
    EXPECT_GE(import.account.kept(), 190);
    EXPECT_LE(import.account.largestMoveMs, 60.0);
}

TEST(AGrid, OfFilmFramesIsFoundByItsTimes) {
    Song song(0xE728); // 25 frames of 40 ticks: a tick is a millisecond
    for (int i = 0; i < 64; ++i)
        song.note(i * 150, 60 + i % 8, 150);
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].score.Tempo, 80);
    EXPECT_EQ(import.account.exact, 64);
}

TEST(AGrid, KeepsTheFourColumnsOfAFileThatAScoreWasWrittenTo) {
    Song song;
    song.meter(0, 1, 16).meter(sixteenth, 4, 4);
    for (int bar = 0; bar < 8; ++bar)
        song.note(sixteenth + bar * 4 * quarter, 60, 4 * quarter);
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 4.0);
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, 0)));
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, 16)));
}

TEST(AGrid, DividesABeatByFiveOnlyIfTheNotesAskForIt) {
    // At 60 beats per minute one column to a quarter would be tempo 12, which no score has.
    EXPECT_EQ(scale(32, quarter).tempo(0, 60.0).import().pieces[0].columnsPerBeat, 2.0);
    EXPECT_EQ(scale(30, quarter / 5).tempo(0, 60.0).import().pieces[0].columnsPerBeat, 5.0);
}

TEST(AGrid, HasRoomForNotesAnywhereInALongSong) {
    Song song = scale(200, sixteenth); // 50 quarters, then triplets
    for (int i = 0; i < 200; ++i)
        song.note((i + 150) * quarter / 3, 60 + i % 8, quarter / 3);
    EXPECT_EQ(song.import().pieces[0].columnsPerBeat, 12.0);
}

TEST(AGrid, MayHave64QuartersInAColumn) {
    // 6400 beats per minute: 64 quarters last 0.6 s, a column of tempo 20.
    const Import import = scale(20, 64 * quarter).tempo(0, 6400.0).import();
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 1.0 / 64);
    EXPECT_EQ(import.pieces[0].score.Tempo, 20);
}

TEST(AGrid, GivesAGraceNoteAtTheStartAColumnOfItsOwn) {
    Song song; // both are nearest to column 0
    song.note(0, 71, 30).note(40, 60, 60);
    for (int i = 2; i < 34; ++i)
        song.note(i * sixteenth, 62, sixteenth);
    EXPECT_EQ(rowText(song.import().pieces[0].score, 0, 3), "71 60 62");
}

} // namespace
} // namespace velorin::importing::test

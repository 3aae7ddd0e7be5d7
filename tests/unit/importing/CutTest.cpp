// Pieces that are too long for a score.
#include "Song.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

TEST(AScore, OfAThousandColumnsIsNotCut) {
    Song song;
    for (int i = 0; i < 1000; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 1U);
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, 999)));
}

TEST(AScore, OfMoreIsCutAtABarLine) {
    Song song;
    for (int i = 0; i < 1500; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 2U);
    // 0.125 s a column: the second score begins a whole number of bars of 2 s later.
    const double bars = import.pieces[1].fromSeconds / 2.0;
    EXPECT_DOUBLE_EQ(bars, static_cast<int>(bars));
    EXPECT_EQ(import.account.kept(), 1500);
    EXPECT_EQ(import.pieces[0].account.notes + import.pieces[1].account.notes, 1500);
}

TEST(AScore, BeginsAHeldNoteAgain) {
    Song song;
    for (int i = 0; i < 1500; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    song.note(0, 40, 1500 * sixteenth, 1);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 2U);
    EXPECT_EQ(rowText(import.pieces[1].score, 1, 2), "40 =");
    EXPECT_EQ(import.account.continued, 1);
    EXPECT_EQ(import.account.notes, 1501);
    EXPECT_EQ(import.account.shortened, 0);
}

TEST(AScore, LeavesOutALongSilenceAtTheStart) {
    Song song; // 30 bars of rests, which are 60 s
    for (int i = 0; i < 16; ++i)
        song.note(120 * quarter + quarter + i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 1U);
    EXPECT_DOUBLE_EQ(import.pieces[0].fromSeconds, 60.0);
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, 4)));
}

TEST(AScore, KeepsAShortSilenceAtTheStart) {
    Song song; // one bar of rests
    for (int i = 0; i < 16; ++i)
        song.note(4 * quarter + i * sixteenth, 60 + i % 7, sixteenth);
    const Score score = song.import().pieces[0].score;
    EXPECT_TRUE(isEmpty(score.NoteArray.at(0, 15)));
    EXPECT_TRUE(isStart(score.NoteArray.at(0, 16)));
}

TEST(AScore, IsNotCutInTheSilenceOfANoteThatSoundsOn) {
    Song song; // 1000 columns, a bass note alone for 50 s, and 600 columns
    for (int i = 0; i < 1000; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    song.note(900 * sixteenth, 40, 500 * sixteenth, 1);
    for (int i = 1400; i < 2000; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 2U);
    EXPECT_DOUBLE_EQ(import.pieces[1].fromSeconds, 125.0);
    EXPECT_EQ(rowText(import.pieces[1].score, 1, 2), "40 =");
}

TEST(AScore, KeepsASilenceOfTenSeconds) {
    Song song; // 20 quarters
    for (int i = 0; i < 16; ++i)
        song.note(20 * quarter + i * sixteenth, 60 + i % 7, sixteenth);
    EXPECT_DOUBLE_EQ(song.import().pieces[0].fromSeconds, 0.0);
}

TEST(AScore, BeginsAfterASilenceAtABarOfTheLastMeter) {
    Song song; // 40 bars of 3/4 are rests; the notes begin on the second quarter of a bar
    song.meter(0, 4, 4).meter(4 * quarter, 3, 4);
    for (int i = 0; i < 16; ++i)
        song.note((4 + 40 * 3 + 1) * quarter + i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    EXPECT_DOUBLE_EQ(import.pieces[0].fromSeconds, (4 + 40 * 3) * 0.5);
    EXPECT_TRUE(isStart(import.pieces[0].score.NoteArray.at(0, 4)));
}

TEST(AScore, MayBeCutAtItsLastColumn) {
    Song song; // 1999 columns in bars of eight; of columns 999 and 1000 the second begins a bar
    song.meter(0, 2, 4);
    for (int i = 0; i < 1999; ++i)
        song.note(i * sixteenth, 60 + i % 7, sixteenth);
    const Import import = song.import();
    ASSERT_EQ(import.pieces.size(), 2U);
    EXPECT_DOUBLE_EQ(import.pieces[1].fromSeconds, 125.0);
}

} // namespace
} // namespace velorin::importing::test

// Percussion sounds and their rows.
#include "importing/Drums.h"

#include "Song.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

constexpr int drums = 9; // the channel

TEST(ADrum, HasTheSoundOfItsKey) {
    EXPECT_EQ(drumOf(35), 128);
    EXPECT_EQ(drumOf(81), 174);
    EXPECT_EQ(drumOf(82), 128 + 70 - 35); // a shaker becomes maracas
    EXPECT_EQ(drumOf(31), 128 + 37 - 35); // sticks become a side stick
    EXPECT_EQ(drumOf(87), 128 + 41 - 35); // an open surdo becomes a low floor tom
    EXPECT_EQ(drumOf(33), 128 + 76 - 35); // a metronome becomes a high wood block
    EXPECT_EQ(drumOf(20), 0);
    EXPECT_EQ(drumOf(88), 0);
}

TEST(ADrum, HasARowByItsKind) {
    Song song;
    for (const int key : {36, 38, 42, 49, 45})
        song.note(0, key, sixteenth, drums);
    const Score score = song.note(quarter, 36, sixteenth, drums).import().pieces[0].score;
    EXPECT_EQ(rowText(score, 8, 2), "36 36");
    EXPECT_EQ(rowText(score, 9, 2), "38 .");
    EXPECT_EQ(rowText(score, 10, 2), "42 .");
    EXPECT_EQ(rowText(score, 11, 2), "49 .");
    EXPECT_EQ(rowText(score, 12, 2), "45 .");
}

TEST(ADrum, OfFiveIsDroppedIfItMattersLeast) {
    Song song;
    for (const int key : {60, 45, 49, 42, 38, 36})
        song.note(0, key, sixteenth, drums);
    const Import import = song.import();
    EXPECT_EQ(import.account.kept(), 5);
    EXPECT_EQ(import.account.crowdedDrums, 1);
    for (int row = 8; row < 13; ++row)
        EXPECT_NE(rowText(import.pieces[0].score, row, 1), "60");
}

TEST(ADrum, ThatNoSoundIsLikeIsDropped) {
    const Import import =
        Song().note(0, 36, sixteenth, drums).note(quarter, 10, sixteenth, drums).import();
    EXPECT_EQ(import.account.kept(), 1);
    EXPECT_EQ(import.account.unknownDrums, 1);
}

TEST(ADrum, EndsWithTheNextOfItsRow) {
    Song song;
    song.note(0, 36, 2 * quarter, drums).note(quarter, 35, sixteenth, drums);
    EXPECT_EQ(rowText(song.note(quarter + sixteenth, 42, sixteenth, drums).import().pieces[0].score,
                      8, 6),
              "36 = = = 35 .");
}

TEST(ADrum, NeedsNoMelodicRow) {
    const Score score = Song().note(0, 36, sixteenth, drums).import().pieces[0].score;
    for (int row = 0; row < 8; ++row)
        EXPECT_EQ(rowText(score, row, 1), ".");
}

TEST(ADrum, IsOnALineThatANeighbourDoesNotHide) {
    Song song;
    for (const int key : {36, 38, 42, 49, 45})
        song.note(0, key, sixteenth, drums);
    const Score score = song.import().pieces[0].score;
    constexpr int lines[] = {57, 56, 55, 57, 56};
    for (int row = 8; row < 13; ++row)
        EXPECT_EQ(score.NoteArray.at(row, 0), lines[row - 8]) << row;
}

} // namespace
} // namespace velorin::importing::test

// Which row a note gets, and what happens where rows run out.
#include "Song.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

TEST(ARow, IsThatOfTheChannelIfItIsFree) {
    Song song;
    song.note(0, 60, quarter, 2).note(quarter, 62, quarter, 5);
    const Score score = song.import().pieces[0].score;
    EXPECT_EQ(rowText(score, 2, 2), "60 .");
    EXPECT_EQ(rowText(score, 5, 2), ". 62");
}

TEST(ARow, HasOneVoiceOfAChord) {
    Song song;
    for (int i = 0; i < 4; ++i)
        song.note(i * quarter, 60 + i, quarter).note(i * quarter, 64 + i, quarter);
    const Score score = song.import().pieces[0].score;
    EXPECT_EQ(rowText(score, 0, 4), "64 65 66 67");
    EXPECT_EQ(rowText(score, 1, 4), "60 61 62 63");
}

TEST(ARow, DoesNotCrossTheNextOneInChords) {
    Song song; // the middle note of the second chord is nearest to the lowest of the first
    for (const int key : {60, 64, 72})
        song.note(0, key, quarter);
    for (const int key : {50, 61, 66})
        song.note(quarter, key, quarter);
    const Score score = song.import().pieces[0].score;
    EXPECT_EQ(rowText(score, 0, 2), "72 66");
    EXPECT_EQ(rowText(score, 1, 2), "64 61");
    EXPECT_EQ(rowText(score, 2, 2), "60 50");
}

TEST(ARow, EndsANoteThatOverlapsTheNextALittle) {
    Song song;
    song.note(0, 60, quarter + 2 * sixteenth).note(quarter, 62, quarter);
    song.note(2 * quarter, 64, sixteenth).note(2 * quarter + sixteenth, 65, sixteenth);
    const Import import = song.import();
    EXPECT_EQ(rowText(import.pieces[0].score, 0, 10), "60 = = = 62 = = = 64 65");
    EXPECT_EQ(import.account.shortened, 1);
}

TEST(ARow, HoldsVoicesThatNeverOverlapIfThereAreMoreVoicesThanRows) {
    Song song; // nine channels, each with one bar
    for (int channel = 0; channel < 9; ++channel)
        for (int i = 0; i < 4; ++i)
            song.note((channel * 4 + i) * quarter, 48 + channel, quarter, channel);
    const Import import = song.import();
    EXPECT_EQ(import.account.kept(), 36);
    EXPECT_EQ(import.account.shortened, 0);
}

TEST(ARow, IsNeverSharedByTheMelodyAndTheBass) {
    // Nine channels, each with one bar. Channel 1 is the lowest and channel 2 the highest.
    Song song;
    for (int channel = 0; channel < 9; ++channel) {
        const int key = channel == 1 ? 36 : channel == 2 ? 96 : 60;
        for (int i = 0; i < 4; ++i)
            song.note((channel * 4 + i) * quarter, key, quarter, channel);
    }
    const Score score = song.import().pieces[0].score;
    const auto rowOf = [&score](int column) {
        int row = 0;
        while (row < musicRows && !isStart(score.NoteArray.at(row, column)))
            ++row;
        return row;
    };
    EXPECT_LT(rowOf(4), musicRows);
    EXPECT_LT(rowOf(8), musicRows);
    EXPECT_NE(rowOf(4), rowOf(8));
}

TEST(ARow, IsThatOfOneVoiceIfNoOtherRowHasRoomForAllOfIt) {
    // Channel 0 has a melody that rests in the first column, and a voice below it.
    Song song;
    for (int i = 0; i < 4; ++i) {
        if (i > 0)
            song.note(i * quarter, 96, quarter);
        song.note(i * quarter, 72, quarter);
        for (int channel = 1; channel < 8; ++channel)
            song.note(i * quarter, 72 - 5 * channel, quarter, channel);
    }
    EXPECT_EQ(rowText(song.import().pieces[0].score, 0, 4), "72 72 72 72");
}

// Two notes last, the one 16 columns too long for the note between them, the other 20. From 16 on
// the loss is the same, and the longer note loses a smaller part of itself.
TEST(ARow, IsTakenFromTheLongerOfTwoNotesThatBothLoseMuch) {
    Song song;
    song.note(0, 70, 36 * quarter, 2).note(0, 50, 40 * quarter, 3);
    for (int i = 0; i < 40; ++i) {
        song.note(i * quarter, 96, quarter, 0).note(i * quarter, 24, quarter, 1);
        for (int channel = 4; channel < 8; ++channel)
            song.note(i * quarter, 30 + 5 * channel, quarter, channel);
    }
    song.note(20 * quarter, 61, quarter, 8);
    const Import import = song.import();
    EXPECT_EQ(import.account.shortened, 1);
    EXPECT_TRUE(isHeld(import.pieces[0].score.NoteArray.at(2, 35)));
    EXPECT_EQ(PitchToKey(import.pieces[0].score.NoteArray.at(3, 20)), 61);
}

TEST(ARow, KeepsTheInstrumentOfEachNote) {
    Song song;
    song.program(0, 24).note(0, 60, quarter).program(quarter, 73).note(quarter, 62, quarter);
    const Score score = song.import().pieces[0].score;
    EXPECT_EQ(score.InstrumentArray.at(0, 0), 24);
    EXPECT_EQ(score.InstrumentArray.at(0, 1), 73);
    EXPECT_EQ(score.RowInstrument[0], 24);
}

TEST(ARow, IsTakenFromAHeldInnerNoteIfThereAreTooMany) {
    Song song; // eight held notes, and a ninth that begins a quarter later
    for (int i = 0; i < 8; ++i)
        song.note(0, 48 + 5 * i, 4 * quarter, i);
    song.note(quarter, 61, quarter, 8);
    const Import import = song.import();
    EXPECT_EQ(import.account.kept(), 9);
    EXPECT_EQ(import.account.shortened, 1);
    // The lowest and the highest note are not the ones that were shortened.
    EXPECT_EQ(rowText(import.pieces[0].score, 0, 4), "48 = = =");
    EXPECT_EQ(rowText(import.pieces[0].score, 7, 4), "83 = = =");
}

TEST(ARow, IsMissingForTheNinthNoteOfAColumn) {
    Song song;
    for (int i = 0; i < 9; ++i)
        song.note(0, 40 + 2 * i, quarter);
    const Import import = song.import();
    EXPECT_EQ(import.account.kept(), 8);
    EXPECT_EQ(import.account.crowded, 1);
}

TEST(ARow, HoldsANoteForThePedalOnlyWhereItIsFree) {
    Song song;
    song.control(0, 64, 127).control(4 * quarter - 1, 64, 0);
    song.note(0, 60, quarter).note(2 * quarter, 60, quarter).note(4 * quarter, 60, quarter);
    EXPECT_EQ(rowText(song.import().pieces[0].score, 0, 5), "60 = 60 = 60");
}

TEST(ARow, HasAVolumeFromVelocityAndChannelVolume) {
    Song song;
    song.control(0, 7, 50).note(0, 60, quarter, 0, 0, 80).note(quarter, 60, quarter, 1, 0, 90);
    const Import import = song.import();
    EXPECT_EQ(import.pieces[0].volumes[0], 40); // half the usual volume of 100
    EXPECT_EQ(import.pieces[0].volumes[1], 90);
    EXPECT_EQ(import.pieces[0].volumes[2], 127);
}

TEST(AGraceNote, GetsAColumnOfItsOwn) {
    Song song;
    for (int i = 0; i < 32; ++i)
        song.note(i * sixteenth * 2, 60, sixteenth);
    song.note(20 * quarter - 40, 74, 40).note(20 * quarter, 72, quarter);
    const Import import = song.import();
    const Score& score = import.pieces[0].score;
    EXPECT_EQ(import.pieces[0].columnsPerBeat, 2.0);
    EXPECT_EQ(PitchToKey(score.NoteArray.at(0, 39)), 74);
    EXPECT_EQ(PitchToKey(score.NoteArray.at(0, 40)), 72);
}

TEST(ARow, IsNotSharedByNotesThatOverlapMuch) {
    Song song; // channel 1 gives the grid its sixteenths
    for (int i = 0; i < 160; ++i)
        song.note(i * sixteenth, 40 + i % 5, sixteenth, 1);
    song.note(100 * sixteenth, 60, 12 * sixteenth).note(106 * sixteenth, 64, 12 * sixteenth);
    song.note(0, 60, 4 * sixteenth).note(2 * sixteenth, 64, 4 * sixteenth);
    EXPECT_EQ(song.import().account.shortened, 0);
}

} // namespace
} // namespace velorin::importing::test

// How a cell becomes notes: keys, velocities, chords, the strum, and keys out of range.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct Chords : testing::Test, PlaybackStage {
    void choose(std::int16_t first, std::int16_t second, std::int16_t third) {
        sounding.ChordInterval1 = first;
        sounding.ChordInterval2 = second;
        sounding.ChordInterval3 = third;
    }
};

// Pitch index 67 is key 60, hex 3C; velocity 127 is hex 7F, 108 is 6C, 70 is 46.

TEST_F(Chords, APlainNoteIsOneMessageAndKeepsItsVelocity) {
    sounding.StartNote(67, 3);
    EXPECT_EQ(midi(), (Lines{"0.000 93 3C 7F"}));
    EXPECT_EQ(sounding.Velocity, 127);
    EXPECT_EQ(sounding.NoteKey, 60);
    EXPECT_EQ(sounding.NoteChannel, 3);
    EXPECT_EQ(sounding.LastMessages[0], 0x7F3C93);
}

TEST_F(Chords, AMajorChordSoundsItsRootAt108AndTheRestAt70) {
    setup.options.rows[0].chord = true;
    choose(4, 7, 12);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(),
              (Lines{"0.000 90 3C 6C", "0.000 90 40 46", "0.000 90 43 46", "0.000 90 48 46"}));
    EXPECT_EQ(sounding.Velocity, 127);
}

TEST_F(Chords, TheStartChordIsTheMinorOne) {
    setup.options.rows[2].chord = true;
    sounding.StartNote(67, 2);
    EXPECT_EQ(midi(),
              (Lines{"0.000 92 3C 6C", "0.000 92 3F 46", "0.000 92 43 46", "0.000 92 48 46"}));
}

// 10 x 0.85 is 8.5 and goes to 8, 30 x 0.85 is 25.5 and goes to 26; 8 x 0.65 is 5.2, 26 x 0.65 is
// 16.9.
TEST_F(Chords, HalvesOfAVelocityGoToTheEvenNumber) {
    setup.options.rows[0].chord = true;
    choose(4, 0, 0);
    sounding.Velocity = 10;
    sounding.StartNote(67, 0);
    sounding.Velocity = 30;
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(),
              (Lines{"0.000 90 3C 08", "0.000 90 40 05", "0.000 90 3C 1A", "0.000 90 40 11"}));
}

TEST_F(Chords, AMarkOnThePlayColumnMakesAChordToo) {
    studio.run.PlayColumn = 7;
    studio.score.PolyArray.write(5, 8, 1); // row 4, column 7
    choose(4, 0, 0);
    sounding.StartNote(67, 4);
    EXPECT_EQ(midi(), (Lines{"0.000 94 3C 6C", "0.000 94 40 46"}));
    studio.run.PlayColumn = 8;
    sounding.StartNote(67, 4);
    EXPECT_EQ(midi(), (Lines{"0.000 94 3C 7F"}));
}

TEST_F(Chords, InColumn1000NoMarkIsFound) {
    studio.run.PlayColumn = 1000;
    studio.score.PolyArray.write(1, 1000, 1); // the mark of column 999
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 3C 7F"}));
}

TEST_F(Chords, RowsAboveTheMusicRowsNeverSoundAChord) {
    studio.score.PolyArray.write(8, 1, 1); // row 7 has one
    sounding.StartNote(67, 8);
    EXPECT_EQ(midi(), (Lines{"0.000 98 3C 7F"}));
}

TEST_F(Chords, ThePercussionSoundOfAChordRowIsLoweredButSoundsAlone) {
    setup.options.rows[0].chord = true;
    sounding.ChangeInstrument(128, 0);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 99 23 6C"}));
    EXPECT_EQ(sounding.Velocity, 108);
}

TEST_F(Chords, TheTwoOctaveComboAddsOneNoteBelowTheRoot) {
    setup.options.rows[0].chord = true;
    choose(-12, 0, 0);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 3C 6C", "0.000 90 30 46"}));
    sounding.SoundRow = 0;
    sounding.StopNote(67);
    EXPECT_EQ(midi(),
              (Lines{"0.000 80 3C 00", "0.000 80 30 00", "0.000 80 3C 00", "0.000 80 3C 00"}));
}

TEST_F(Chords, TheThreeOctaveComboHasNoThirdChordNote) {
    setup.options.rows[0].chord = true;
    choose(-12, 12, 0);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 3C 6C", "0.000 90 30 46", "0.000 90 48 46"}));
}

TEST_F(Chords, AStrummedChordLeavesAt0And45And80And115Milliseconds) {
    setup.options.rows[0].chord = true;
    setup.options.rows[0].strummed = true;
    choose(4, 7, 12);
    at(0.010, [this] { ADD_FAILURE() << "a strum serves no event"; });
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(),
              (Lines{"0.000 90 3C 6C", "0.045 90 40 46", "0.080 90 43 46", "0.115 90 48 46"}));
    EXPECT_EQ(host.time.now(), 115'000'000);
}

TEST_F(Chords, AStrumWaitsAfterTheFirstChordNoteEvenIfNoneFollows) {
    setup.options.rows[0].chord = true;
    setup.options.rows[0].strummed = true;
    choose(-12, 0, 0);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 3C 6C", "0.045 90 30 46"}));
    EXPECT_EQ(host.time.now(), 80'000'000);
}

TEST_F(Chords, AStrummedRowWithoutAChordDoesNotWait) {
    setup.options.rows[0].strummed = true;
    sounding.StartNote(67, 0);
    EXPECT_EQ(host.time.now(), 0);
}

// Key 120 with the major chord: 124 and 127 fit into a message, 132 does not.
TEST_F(Chords, AChordIsAbandonedAtTheFirstKeyOf128) {
    setup.options.rows[0].chord = true;
    choose(4, 7, 12);
    sounding.StartNote(7, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 78 6C", "0.000 90 7C 46", "0.000 90 7F 46"}));
    EXPECT_EQ(sounding.Velocity, 70); // not reset to 127
}

TEST_F(Chords, NotesAfterTheAbandonedOneAreNotSentEither) {
    setup.options.rows[0].chord = true;
    choose(12, -3, 1);
    sounding.StartNote(7, 0); // 132 comes first
    EXPECT_EQ(midi(), (Lines{"0.000 90 78 6C"}));
    sounding.StopNote(7);
    EXPECT_EQ(midi(), (Lines{"0.000 80 78 00"}));
}

// Key 5 less 12 is -7: 0x900000 + 0x90 - 0x700 borrows. The key byte is F9, and the velocity byte
// is one less.
TEST_F(Chords, AKeyBelow0BorrowsFromTheVelocity) {
    setup.options.rows[0].chord = true;
    choose(-12, 0, 0);
    sounding.StartNote(122, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 05 6C", "0.000 90 F9 45"}));
    sounding.StopNote(122);
    EXPECT_EQ(midi(),
              (Lines{"0.000 80 05 00", "0.000 80 F9 FF", "0.000 80 05 00", "0.000 80 05 00"}));
    EXPECT_EQ(sounding.LastMessages[1], 0x80 - 0x700);
}

TEST_F(Chords, ANoteIndexThatHasNoKeySoundsNothing) {
    sounding.StartNote(256, 0); // key -129
    sounding.StartNote(-1, 0);  // key 128
    EXPECT_EQ(midi(), Lines{});
    sounding.StartNote(255, 0); // key -128
    EXPECT_EQ(midi(), (Lines{"0.000 90 80 7E"}));
}

TEST_F(Chords, AnInstrumentOfNoRowIsSentAndNotKept) {
    for (const int row : {13, 15}) {
        sounding.ChangeInstrument(5, row);
        sounding.ChangeInstrument(174, row);
    }
    EXPECT_EQ(midi(), (Lines{"0.000 BD 00 00", "0.000 BD 20 00", "0.000 CD 05", "0.000 BF 00 00",
                             "0.000 BF 20 00", "0.000 CF 05"}));
}

TEST_F(Chords, APercussionSoundStartsOnChannel9AndEndsOnChannel12) {
    sounding.ChangeInstrument(174, 10);
    sounding.StartNote(3, 10);
    EXPECT_EQ(midi(), (Lines{"0.000 99 51 7F"}));
    sounding.SoundRow = 10;
    sounding.StopNote(3);
    EXPECT_EQ(midi(),
              (Lines{"0.000 8C 51 00", "0.000 8C 54 00", "0.000 8C 58 00", "0.000 8C 5D 00"}));
}

TEST_F(Chords, StopNoteSendsFourNoteOffsWhereNoChordSounded) {
    sounding.SoundRow = 1;
    sounding.StopNote(67);
    EXPECT_EQ(midi(),
              (Lines{"0.000 81 3C 00", "0.000 81 3F 00", "0.000 81 43 00", "0.000 81 48 00"}));
}

} // namespace
} // namespace velorin

// Keys of a MIDI keyboard as notes of the current row.
#include "PlaybackStage.h"

#include "playback/MidiKeys.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct MidiKeysTest : testing::Test, PlaybackStage {
    MidiKeys keys{studio, sounding};

    /// The messages that it sends.
    Lines play(const std::function<void()>& what) {
        midi(); // what came before
        what();
        return midi();
    }
};

TEST_F(MidiKeysTest, AKeySoundsOnTheCurrentRowWithItsInstrumentAndVolume) {
    studio.score.CurrentRow = 2;
    studio.score.RowInstrument[2] = 24;
    setup.options.rows[2].volume = "90";
    EXPECT_EQ(play([this] { keys.press(60); }),
              (Lines{"0.000 B2 00 00", "0.000 B2 20 00", "0.000 C2 18", "0.000 92 3C 5A"}));
    EXPECT_EQ(play([this] { keys.release(60); }), (Lines{"0.000 82 3C 00"}));
}

TEST_F(MidiKeysTest, AKeyEndsOnTheRowWhereItBegan) {
    studio.score.CurrentRow = 1;
    keys.press(60);
    studio.score.CurrentRow = 4;
    EXPECT_EQ(play([this] { keys.release(60); }), (Lines{"0.000 81 3C 00"}));
}

TEST_F(MidiKeysTest, WhatTheNextNoteUsesStays) {
    sounding.Velocity = 77;
    sounding.SoundRow = 6;
    setup.options.rows[0].chord = true;
    keys.press(60);
    EXPECT_EQ(sounding.Velocity, 77);
    EXPECT_EQ(sounding.SoundRow, 6);
}

TEST_F(MidiKeysTest, AReleasedKeyLeavesTheOthersAlone) {
    keys.press(60); // three semitones above the next: the third of its chord
    keys.press(57);
    EXPECT_EQ(play([this] { keys.release(57); }), (Lines{"0.000 80 39 00"}));
}

TEST_F(MidiKeysTest, ARowWithItsChordBoxSoundsChords) {
    setup.options.rows[0].chord = true;
    EXPECT_EQ(play([this] { keys.press(60); }).size(), 3 + 4);
    EXPECT_EQ(play([this] { keys.release(60); }).size(), 4);
}

TEST_F(MidiKeysTest, ADrumRowSoundsItsDrumWhateverTheKey) {
    studio.score.CurrentRow = 9;
    studio.score.RowInstrument[9] = 131; // key 38, hex 26
    setup.options.rows[9].volume = "127";
    EXPECT_EQ(play([this] { keys.press(60); }).back().substr(0, 11), "0.000 99 26");
}

TEST_F(MidiKeysTest, WhileASongPlaysTheProgramStays) {
    studio.run.IsPlaying = flagSet;
    EXPECT_EQ(play([this] { keys.press(60); }), (Lines{"0.000 90 3C 7F"}));
    studio.run.IsPlaying = flagClear;
}

TEST_F(MidiKeysTest, AKeyThatIsDownSoundsAgainAndOneThatIsUpDoesNotEnd) {
    keys.press(60);
    const Lines again = play([this] { keys.press(60); });
    EXPECT_EQ(again.front(), "0.000 80 3C 00");
    EXPECT_EQ(again.back(), "0.000 90 3C 7F");
    EXPECT_EQ(play([this] { keys.release(61); }), Lines{});
    EXPECT_EQ(play([this] {
                  keys.press(-1);
                  keys.press(128);
                  keys.release(128);
              }),
              Lines{});
}

TEST_F(MidiKeysTest, AllKeysEndAtOnce) {
    keys.press(60);
    keys.press(64);
    EXPECT_EQ(play([this] { keys.releaseAll(); }), (Lines{"0.000 80 3C 00", "0.000 80 40 00"}));
    EXPECT_EQ(play([this] { keys.releaseAll(); }), Lines{});
}

TEST_F(MidiKeysTest, TheLowestKeyEndsToo) {
    keys.press(0);
    EXPECT_EQ(play([this] { keys.release(0); }), (Lines{"0.000 80 00 00"}));
}

TEST_F(MidiKeysTest, TheKeysAtBothEndsEndWithTheOthers) {
    keys.press(0);
    keys.press(127);
    EXPECT_EQ(play([this] { keys.releaseAll(); }), (Lines{"0.000 80 00 00", "0.000 80 7F 00"}));
}

} // namespace
} // namespace velorin

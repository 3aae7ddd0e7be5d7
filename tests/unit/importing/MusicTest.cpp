// Notes as the messages of a file make them.
#include "importing/Music.h"

#include "Song.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

TEST(Music, EndsTheFirstOfTwoEqualNotesFirst) {
    Song song;
    song.message(0, 0x90, 60, 100).message(100, 0x90, 60, 100);
    song.message(200, 0x80, 60, 0).message(300, 0x80, 60, 0);
    const Music music = musicOf(song.data());
    ASSERT_EQ(music.notes.size(), 2U);
    EXPECT_LT(music.notes[0].endUs, music.notes[1].endUs);
}

TEST(Music, TakesANoteOnOfVelocity0AsANoteOff) {
    Song song;
    song.message(0, 0x90, 60, 100).message(quarter, 0x90, 60, 0);
    const Music music = musicOf(song.data());
    ASSERT_EQ(music.notes.size(), 1U);
    EXPECT_DOUBLE_EQ(music.notes[0].endUs, 500e3);
}

TEST(Music, HoldsANoteWithoutANoteOffToTheEnd) {
    Song song;
    song.message(0, 0x90, 60, 100).note(quarter, 62, quarter);
    EXPECT_DOUBLE_EQ(musicOf(song.data()).notes[0].endUs, 1e6);
}

TEST(Music, BeginsWithAPianoAtTheUsualVolume) {
    const Import import = Song().note(0, 60, quarter, 0, 0, 127).import();
    EXPECT_EQ(import.pieces[0].score.InstrumentArray.at(0, 0), 0);
    EXPECT_EQ(import.pieces[0].volumes[0], 127);
}

TEST(Music, NamesTheNotesOfASilentChannel) {
    Song song;
    song.control(0, 7, 0).note(0, 60, quarter);
    song.control(2 * quarter, 7, 100).note(2 * quarter, 62, quarter);
    const Music music = musicOf(song.data());
    ASSERT_EQ(music.notes.size(), 1U);
    EXPECT_EQ(music.notes[0].key, 62);
    EXPECT_EQ(music.leftOut.silent, 1);
}

TEST(Music, HearsANoteWhoseChannelGetsLouder) {
    Song song;
    song.control(0, 7, 0).note(0, 60, quarter).control(sixteenth, 7, 100);
    EXPECT_EQ(musicOf(song.data()).notes.size(), 1U);
}

TEST(Music, OfPatternsPlaysThemOneAfterTheOther) {
    Song song;
    song.note(0, 60, quarter, 0, 0).note(0, 62, quarter, 0, 1);
    midifile::MidiData data = song.data();
    data.format = 2;
    const Music music = musicOf(data);
    EXPECT_DOUBLE_EQ(music.notes[0].us, 0.0);
    EXPECT_DOUBLE_EQ(music.notes[1].us, 500e3);
}

TEST(Music, CountsWhatHasNoPlaceInAScore) {
    Song song;
    song.note(0, 60, quarter).message(0, 0xE0, 0, 64).message(0, 0xD0, 5, 0);
    song.control(0, 1, 5).control(0, 7, 90).control(0, 64, 0).tempo(0, 100.0);
    const LeftOut leftOut = musicOf(song.data()).leftOut;
    EXPECT_EQ(leftOut.bends, 1);
    EXPECT_EQ(leftOut.pressures, 1);
    EXPECT_EQ(leftOut.controllers, 1);
}

TEST(Music, StaysSilentUntilTheVolumeIsAboveZero) {
    Song song;
    song.control(0, 7, 0).note(0, 60, 2 * quarter).control(sixteenth, 7, 0);
    EXPECT_EQ(musicOf(song.data()).leftOut.silent, 1);
    song.control(quarter, 7, 1);
    EXPECT_EQ(musicOf(song.data()).notes.size(), 1U);
}

TEST(Music, MayHaveTheFastestTempoThatAFileCanSay) {
    Song song; // a microsecond a quarter note
    song.tempo(0, 60e6).note(0, 60, quarter);
    EXPECT_DOUBLE_EQ(musicOf(song.data()).notes[0].endUs, 1.0);
}

TEST(Music, EndsANoteOnItsOwnTrackAndChannel) {
    Song song; // the same key on channel 9 of the first track and on channel 1 of the second
    song.note(0, 60, 4 * quarter, 8, 0).note(quarter, 60, quarter, 0, 1);
    const Music music = musicOf(song.data());
    ASSERT_EQ(music.notes.size(), 2U);
    EXPECT_DOUBLE_EQ(music.notes[0].endUs, 2e6);
    EXPECT_DOUBLE_EQ(music.notes[1].endUs, 1e6);
}

} // namespace
} // namespace velorin::importing::test

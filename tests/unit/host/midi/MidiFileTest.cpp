// Reading MIDI files.
#include "host/midi/MidiFile.h"
#include "MidiBytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin::host {
namespace {

using test::midiChunk;
using test::midiHeader;
using test::readMidi;

/// A note after 100 ticks, and the end of the track after 100 more.
std::string noteTrack(char key) {
    return midiChunk("MTrk",
                     std::string("\x64\x90", 2) + key + std::string("\x40\x64\xFF\x2F\x00", 5));
}

TEST(AMidiFile, AppliesTempoChangesToItsTimes) {
    const auto file = readMidi(test::shortSong());
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 3U);
    EXPECT_EQ(file->events[0].timeUs, 0);
    EXPECT_EQ(file->events[0].message.kind(), 0xC0);
    EXPECT_EQ(file->events[1].timeUs, 0);
    EXPECT_EQ(file->events[2].timeUs, 75'000);
    EXPECT_EQ(file->events[2].message.byte[2], 0) << "the note goes on with the status before";
    EXPECT_EQ(file->lengthUs, 75'000);
}

TEST(AMidiFile, OfSeveralTracksPlaysThemTogether) {
    const std::string first("\x64\x90\x3C\x40\x00\xFF\x2F\x00", 8);  // a note after 100 ticks
    const std::string second("\x32\x91\x3E\x40\x64\xFF\x2F\x00", 8); // after 50, and it lasts
    const auto file = readMidi(midiHeader(100) + midiChunk("MTrk", first) +
                               midiChunk("junk", "???") + midiChunk("MTrk", second));
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 2U);
    EXPECT_EQ(file->events[0].timeUs, 250'000);
    EXPECT_EQ(file->events[0].message.channel(), 1);
    EXPECT_EQ(file->events[1].timeUs, 500'000);
    EXPECT_EQ(file->lengthUs, 750'000);
}

TEST(AMidiFile, MayCountFilmFrames) {
    const std::string track("\x28\x90\x3C\x40\x00\xFF\x2F\x00", 8);
    // 25 frames a second of 40 ticks each: a tick is a millisecond.
    const auto file = readMidi(midiHeader((256 - 25) << 8 | 40) + midiChunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.at(0).timeUs, 40'000);
}

// 30 frames for the 29 of the header, and 1.001 times as long: 30,000 frames in 1001 seconds.
TEST(AMidiFile, MayCountTheFramesOfTelevision) {
    const std::string track("\x84\x58\x90\x3C\x40\x00\xFF\x2F\x00", 9); // after 600 ticks
    const auto file = readMidi(midiHeader((256 - 29) << 8 | 2) + midiChunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.at(0).timeUs, 10'010'000);
}

TEST(AMidiFile, ThatIsCutOffGivesTheEventsBeforeTheCut) {
    const std::string whole = test::shortSong();
    EXPECT_FALSE(readMidi(""));
    EXPECT_FALSE(readMidi("RIFF"));
    EXPECT_FALSE(readMidi(whole.substr(0, 14)));
    const auto cut = readMidi(whole.substr(0, whole.size() - 12));
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->events.size(), 2U);
    for (std::size_t size = 0; size < whole.size(); ++size)
        (void)readMidi(whole.substr(0, size));
}

TEST(AMidiFile, LeavesOutExclusiveMessagesAndDamage) {
    const std::string track("\x00\xF0\x03\x7E\x7F\xF7" // an exclusive message
                            "\x00\x90\x3C\x40"         // a note
                            "\x00\xF4\x90\x3C\x40",    // a status that is none
                            6 + 4 + 5);
    const auto file = readMidi(midiHeader(100) + midiChunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 1U);
    EXPECT_FALSE(file->isWhole);
}

TEST(AMidiFile, IgnoresTheTopBitOfADatum) {
    const std::string track("\x00\xC0\x85"     // program 5
                            "\x00\x90\x3C\xCC" // velocity 204
                            "\x64\x80\xBC\x80" // key 60, velocity 0
                            "\x00\xFF\x2F\x00",
                            3 + 4 + 4 + 4);
    const auto file = readMidi(midiHeader(100) + midiChunk("MTrk", track));
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 3U);
    EXPECT_EQ(file->events[0].message.byte[1], 5);
    EXPECT_EQ(file->events[1].message.byte[2], 204 - 128);
    EXPECT_EQ(file->events[2].message.byte[1], 60);
    EXPECT_EQ(file->events[2].message.byte[2], 0);
    EXPECT_TRUE(file->hasNotes());
}

TEST(AMidiFile, HasAsManyTracksAsItsHeaderSays) {
    const std::string tracks =
        noteTrack(60) + midiChunk("junk", "???") + noteTrack(62) + noteTrack(64);
    EXPECT_EQ(readMidi(midiHeader(100, 1, 2) + tracks)->events.size(), 2U);
    EXPECT_EQ(readMidi(midiHeader(100, 1, 9) + tracks)->events.size(), 3U) << "more are not there";
    EXPECT_EQ(readMidi(midiHeader(100, 1, 0) + tracks)->events.size(), 3U) << "none is no count";
}

TEST(AMidiFile, EndsWhereAnotherFileBegins) {
    const auto file =
        readMidi(midiHeader(100, 1, 4) + noteTrack(60) + midiHeader(50, 1, 4) + noteTrack(62));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 1U);
    EXPECT_EQ(file->lengthUs, 1'000'000) << "200 ticks, 100 to a quarter of half a second";
}

TEST(AMidiFile, OfPatternsPlaysThemOneAfterTheOther) {
    const std::string faster("\x00\xFF\x51\x03\x03\xD0\x90" // 250,000 us a quarter
                             "\x64\x90\x3E\x40\x64\xFF\x2F\x00",
                             15);
    const auto file =
        readMidi(midiHeader(100, 2, 3) + noteTrack(60) + midiChunk("MTrk", faster) + noteTrack(64));
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 3U);
    EXPECT_EQ(file->events[0].timeUs, 500'000);
    EXPECT_EQ(file->events[1].timeUs, 1'000'000 + 250'000);
    EXPECT_EQ(file->events[2].timeUs, 1'500'000 + 500'000) << "each has a tempo of its own";
    EXPECT_EQ(file->lengthUs, 2'500'000);
}

// 0FFFFFFF ticks of 16.7 s each are 142 years.
TEST(AMidiFile, OfEndlessPatternsKeepsTheOrderOfTime) {
    const std::string endless("\x00\xFF\x51\x03\xFF\xFF\xFF"
                              "\xFF\xFF\xFF\x7F\x90\x3C\x40",
                              14);
    std::string patterns;
    for (int i = 0; i < 20'000; ++i)
        patterns += midiChunk("MTrk", endless);
    const auto file = readMidi(midiHeader(1, 2, 0) + patterns);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 20'000U);
    EXPECT_EQ(file->events.back().timeUs, file->lengthUs);
    EXPECT_EQ(file->lengthUs, 1'000'000'000'000'000);
}

TEST(AMidiFile, KnowsWhetherAnythingInItSounds) {
    const std::string silent("\x00\xC0\x05\x00\x90\x3C\x00\x00\xFF\x2F\x00", 11);
    const auto file = readMidi(midiHeader(100) + midiChunk("MTrk", silent));
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->hasNotes()) << "a note of velocity 0 is the end of one";
    EXPECT_TRUE(file->isWhole);
    EXPECT_TRUE(readMidi(midiHeader(100) + noteTrack(60))->hasNotes());
}

TEST(AMidiFile, ThatIsCutOffIsNotWhole) {
    const std::string whole = midiHeader(100, 1, 1) + noteTrack(60);
    EXPECT_TRUE(readMidi(whole)->isWhole);
    EXPECT_FALSE(readMidi(whole.substr(0, whole.size() - 3))->isWhole);
}

} // namespace
} // namespace velorin::host

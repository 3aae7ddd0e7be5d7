// Chunks, delta times and the order of events in a MIDI file.
#include "convert/MidiWriter.h"
#include "MidiText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

using testing::ElementsAre;

// The header, then one track of four bytes: delta 0, end of track.
TEST(MidiWriter, WritesAFileOfFormat1) {
    EXPECT_EQ(midiFile(96, {MidiTrack()}, 0),
              std::string("MThd\0\0\0\6\0\1\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0", 26));
}

TEST(MidiWriter, WritesDeltaTimesOfOneToFourBytes) {
    MidiTrack track;
    for (const int tick : {0, 127, 127 + 128, 255 + 16'383, 16'638 + 16'384, 33'022 + 2'097'152})
        track.add(tick, "\xC0\x01");
    const std::string bytes = track.chunk(33'022 + 2'097'152 + 0x0FFFFFFF);
    EXPECT_EQ(bytes.substr(8),
              std::string("\x00\xC0\x01\x7F\xC0\x01\x81\x00\xC0\x01\xFF\x7F\xC0\x01"
                          "\x81\x80\x00\xC0\x01\x81\x80\x80\x00\xC0\x01"
                          "\xFF\xFF\xFF\x7F\xFF\x2F\x00",
                          32));
}

TEST(MidiWriter, OrdersEventsByTheirTicksAndThenAsTheyCame) {
    MidiTrack track;
    track.add(10, "\x90\x40\x7F");
    track.addMeta(5, midiMeta::trackName, "late");
    track.add(10, std::string_view("\x80\x40\x00", 3));
    const MidiText text(midiFile(96, {track}, 7));
    EXPECT_TRUE(text.isWhole);
    EXPECT_THAT(text.tracks[0],
                ElementsAre("5 name late", "10 on 1 64 127", "10 off 1 64", "10 end"));
}

TEST(MidiWriter, WritesLongNames) {
    MidiTrack track;
    track.addMeta(0, midiMeta::trackName, std::string(200, 'x'));
    const MidiText text(midiFile(96, {track}, 0));
    EXPECT_TRUE(text.isWhole);
    EXPECT_THAT(text.tracks[0], ElementsAre("0 name " + std::string(200, 'x'), "0 end"));
}

} // namespace
} // namespace velorin::convert

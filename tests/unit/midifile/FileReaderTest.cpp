// Tracks and events of MIDI files. What a file plays is tested with the host's reader.
#include "midifile/FileReader.h"

#include <gtest/gtest.h>

#include <string>

namespace velorin::midifile {
namespace {

/// A file of one track, with 96 ticks per quarter note.
std::string fileOf(const std::string& track) {
    std::string bytes("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0", 21);
    bytes += static_cast<char>(track.size());
    return bytes + track;
}

std::vector<MidiData> read(const std::string& bytes) {
    return readAll(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

const std::string note("\x00\x90\x3C\x40\x60\x80\x3C\x40\x00\xFF\x2F\x00", 12);
const std::string program("\x00\xC0\x05\x00\xFF\x2F\x00", 7);

TEST(AMidiFileReader, GivesTicksAndBytes) {
    const auto files = read(fileOf(note));
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].division, 96);
    ASSERT_EQ(files[0].tracks.size(), 1U);
    const Track& track = files[0].tracks[0];
    ASSERT_EQ(track.events.size(), 2U);
    EXPECT_EQ(track.events[1].tick, 96);
    EXPECT_EQ(track.events[1].kind(), 0x80);
    EXPECT_EQ(track.events[1].count, 3U);
    EXPECT_EQ(track.endTick, 96);
    EXPECT_TRUE(files[0].isWhole());
}

TEST(AMidiFileReader, GivesEachOfSeveralFiles) {
    const auto files = read(fileOf(note) + "XFIH" + std::string("\0\0\0\2ab", 6) + fileOf(program));
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[1].tracks[0].events[0].kind(), 0xC0);
}

TEST(AMidiFileReader, LeavesOutACopyOfTheFirstFile) {
    EXPECT_EQ(read(fileOf(note) + fileOf(note)).size(), 1U);
    EXPECT_EQ(read(fileOf(note) + fileOf(program) + fileOf(note)).size(), 2U);
}

TEST(AMidiFileReader, GivesTempoAndMeter) {
    const Track track = read(fileOf(std::string("\x00\xFF\x51\x03\x09\x27\xC0"
                                                "\x60\xFF\x58\x04\x06\x03\x18\x08\x00\xFF\x2F\x00",
                                                19)))[0]
                            .tracks[0];
    ASSERT_EQ(track.events.size(), 1U);
    EXPECT_EQ(track.events[0].tempoUs, 600'000U);
    ASSERT_EQ(track.meters.size(), 1U);
    EXPECT_EQ(track.meters[0].tick, 96);
    EXPECT_EQ(track.meters[0].beats, 6);
    EXPECT_EQ(track.meters[0].unit, 8);
}

TEST(AMidiFileReader, GivesTheEndOfADrumsCell) {
    const std::string content = drumCellEnd(40);
    std::string track("\x00\x99\x28\x40\x10\xFF\x7F", 7);
    track += static_cast<char>(content.size());
    track += content + std::string("\x00\xFF\x7F\x02\x7D\x01\x00\xFF\x2F\x00", 10);
    const auto files = read(fileOf(track));
    ASSERT_EQ(files[0].tracks[0].events.size(), 2U); // data of other programs is left out
    const Event& end = files[0].tracks[0].events[1];
    EXPECT_TRUE(end.isCellEnd());
    EXPECT_EQ(end.tick, 16);
    EXPECT_EQ(end.bytes[1], 40);
    EXPECT_TRUE(files[0].isWhole());
}

TEST(AMidiFileReader, CountsExclusiveMessages) {
    const auto files =
        read(fileOf(std::string("\x00\xF0\x02\x41\xF7\x00\xF7\x01\x01\x00\xFF\x2F\x00", 13)));
    EXPECT_EQ(files[0].tracks[0].exclusive, 2);
}

/// The only track of a file.
Track trackOf(const std::string& bytes) {
    const auto files = read(fileOf(bytes));
    EXPECT_EQ(files.size(), 1U);
    return files.empty() ? Track() : files[0].tracks[0];
}

TEST(AMidiFileReader, GivesAMeterAtTheEndOfATrack) {
    const Track track = trackOf(std::string("\x00\xFF\x58\x04\x03\x02\x18\x08", 8));
    ASSERT_EQ(track.meters.size(), 1U);
    EXPECT_EQ(track.meters[0].beats, 3);
    EXPECT_TRUE(track.isWhole);
}

TEST(AMidiFileReader, KeepsWhatIsBeforeADamage) {
    const std::string good("\x00\x90\x3C\x40", 4);
    const std::string damages[] = {
        std::string("\x00\xFF\x51\x03\x09", 5),             // a tempo that is cut off
        std::string("\x00\xFF\x58\x04\x06\x03", 6),         // a meter that is cut off
        std::string("\x00\xFF\x58\x09\x06\x03\x18\x08", 8), // one that is longer than the track
        std::string("\x00\xFF\x7F\x09\x7D", 5),             // data that are
        std::string("\x00\xF0\x7F\x41", 4),                 // an exclusive message that is
        std::string("\x81\x81\x81\x81\x01\x90\x3D\x40", 8), // a time of five bytes
        std::string("\x00\x91\x3C", 3),                     // a note that is cut off
        std::string("\x00\xF8", 2),                         // what no file may have
        std::string("\x81", 1),                             // a time that is cut off
    };
    for (const std::string& damage : damages) {
        const Track track = trackOf(good + damage);
        EXPECT_EQ(track.events.size(), 1U) << testing::PrintToString(damage);
        EXPECT_FALSE(track.isWhole) << testing::PrintToString(damage);
        EXPECT_EQ(track.endTick, damage[0] == '\x81' && damage.size() == 1 ? 128 : 0);
    }
}

TEST(AMidiFileReader, LeavesOutATempoAndAMeterOfNothing) {
    const Track track = trackOf(std::string("\x00\xFF\x51\x03\x00\x00\x00"
                                            "\x00\xFF\x58\x04\x00\x02\x18\x08"
                                            "\x00\xFF\x58\x04\x04\x07\x18\x08\x00\xFF\x2F\x00",
                                            27));
    EXPECT_TRUE(track.events.empty());
    EXPECT_TRUE(track.meters.empty()) << "no beats, and notes of a 128th";
    EXPECT_TRUE(track.isWhole);
}

TEST(AMidiFileReader, ReadsAMeterOfTwoBytesAndATempoOfFour) {
    const Track track = trackOf(std::string("\x00\xFF\x58\x02\x03\x06"
                                            "\x00\xFF\x51\x04\x09\x27\xC0\x00\x00\xFF\x2F\x00",
                                            18));
    ASSERT_EQ(track.meters.size(), 1U);
    EXPECT_EQ(track.meters[0].unit, 64);
    EXPECT_TRUE(track.events.empty()) << "a tempo has three bytes";
    EXPECT_TRUE(track.isWhole);
}

/// A file in a container, as some programs write them.
std::string inContainer(const std::string& form, const std::string& file) {
    return "RIFF" + std::string(4, '\0') + form + std::string(4, '\0') + file;
}

TEST(AMidiFileReader, ReadsAFileInAContainer) {
    EXPECT_EQ(read(inContainer("RMIDdata", fileOf(note))).size(), 1U);
    EXPECT_EQ(read(fileOf(note) + inContainer("RMIDdata", fileOf(program))).size(), 2U);
    EXPECT_TRUE(read(inContainer("WAVEdata", fileOf(note))).empty());
}

TEST(AMidiFileReader, LeavesOutASecondFileThatIsDamaged) {
    EXPECT_EQ(read(fileOf(note) + std::string("MThd\0\0\0\6\0\0\0\1\0\0", 14)).size(), 1U);
    EXPECT_EQ(read(fileOf(note) + std::string("MThd\0\0\0\2\0\0", 10)).size(), 1U);
}

TEST(AMidiFileReader, GivesNothingForAText) {
    EXPECT_TRUE(read("Dear diary").empty());
    EXPECT_TRUE(read("").empty());
}

TEST(AMidiFileReader, GivesTheEndOfADrumsCellAtTheEndOfItsTrack) {
    const std::string content = drumCellEnd(40);
    std::string track("\x00\x99\x28\x40\x10\xFF\x7F", 7);
    track += static_cast<char>(content.size());
    const auto files = read(fileOf(track + content));
    ASSERT_EQ(files[0].tracks[0].events.size(), 2U);
    EXPECT_TRUE(files[0].tracks[0].events[1].isCellEnd());
}

TEST(AMidiFileReader, LeavesOutAMeterWithoutBeats) {
    const auto files = read(fileOf(std::string("\x00\xFF\x58\x04\x00\x02\x18\x08", 8) + note));
    EXPECT_TRUE(files[0].tracks[0].meters.empty());
    EXPECT_EQ(files[0].tracks[0].events.size(), 2U);
}

TEST(AMidiFileReader, ReadsATimeOfFourBytes) {
    const auto files =
        read(fileOf(std::string("\x81\x80\x80\x00\x90\x3C\x40\x00\xFF\x2F\x00", 11)));
    ASSERT_EQ(files[0].tracks[0].events.size(), 1U);
    EXPECT_EQ(files[0].tracks[0].events[0].tick, 1 << 21);
    EXPECT_TRUE(files[0].isWhole());
}

} // namespace
} // namespace velorin::midifile

// MIDI files: what is read of them, and how they are played.
#include "host/media/MidiFile.h"
#include "MciStage.h"
#include "host/mci/MidiFilePlayer.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin::host {
namespace {

using test::LoggedPort;
using test::PortLog;

std::optional<MidiFile> read(const std::string& bytes) {
    return readMidiFile(
        std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

std::string chunk(const std::string& name, const std::string& content) {
    std::string bytes = name;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(content.size() >> shift);
    return bytes + content;
}

std::string header(int division, char format = 1, char tracks = 2) {
    return chunk("MThd", std::string{0, format, 0, tracks, static_cast<char>(division >> 8),
                                     static_cast<char>(division)});
}

/// A note after 100 ticks, and the end of the track after 100 more.
std::string noteTrack(char key) {
    return chunk("MTrk", std::string("\x64\x90", 2) + key + std::string("\x40\x64\xFF\x2F\x00", 5));
}

TEST(AMidiFile, HasItsTempoChangesInItsTimes) {
    const auto file = read(test::shortSong());
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
    const auto file =
        read(header(100) + chunk("MTrk", first) + chunk("junk", "???") + chunk("MTrk", second));
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
    const auto file = read(header((256 - 25) << 8 | 40) + chunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.at(0).timeUs, 40'000);
}

// 30 frames for the 29 of the header, and 1.001 times as long: 30,000 frames in 1001 seconds.
TEST(AMidiFile, MayCountTheFramesOfTelevision) {
    const std::string track("\x84\x58\x90\x3C\x40\x00\xFF\x2F\x00", 9); // after 600 ticks
    const auto file = read(header((256 - 29) << 8 | 2) + chunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.at(0).timeUs, 10'010'000);
}

TEST(AMidiFile, ThatIsCutOffGivesWhatStandsBeforeTheCut) {
    const std::string whole = test::shortSong();
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("RIFF"));
    EXPECT_FALSE(read(whole.substr(0, 14)));
    const auto cut = read(whole.substr(0, whole.size() - 12));
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->events.size(), 2U);
    for (std::size_t size = 0; size < whole.size(); ++size)
        (void)read(whole.substr(0, size));
}

TEST(AMidiFile, LeavesOutExclusiveMessagesAndDamage) {
    const std::string track("\x00\xF0\x03\x7E\x7F\xF7" // an exclusive message
                            "\x00\x90\x3C\x40"         // a note
                            "\x00\xF4\x90\x3C\x40",    // a status that is none
                            6 + 4 + 5);
    const auto file = read(header(100) + chunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 1U);
    EXPECT_FALSE(file->isWhole);
}

TEST(AMidiFile, HasSevenBitsInADatum) {
    const std::string track("\x00\xC0\x85"     // program 5
                            "\x00\x90\x3C\xCC" // velocity 204
                            "\x64\x80\xBC\x80" // key 60, velocity 0
                            "\x00\xFF\x2F\x00",
                            3 + 4 + 4 + 4);
    const auto file = read(header(100) + chunk("MTrk", track));
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 3U);
    EXPECT_EQ(file->events[0].message.byte[1], 5);
    EXPECT_EQ(file->events[1].message.byte[2], 204 - 128);
    EXPECT_EQ(file->events[2].message.byte[1], 60);
    EXPECT_EQ(file->events[2].message.byte[2], 0);
    EXPECT_TRUE(file->hasNotes());
}

TEST(AMidiFile, HasAsManyTracksAsItsHeaderSays) {
    const std::string tracks = noteTrack(60) + chunk("junk", "???") + noteTrack(62) + noteTrack(64);
    EXPECT_EQ(read(header(100, 1, 2) + tracks)->events.size(), 2U);
    EXPECT_EQ(read(header(100, 1, 9) + tracks)->events.size(), 3U) << "more are not there";
    EXPECT_EQ(read(header(100, 1, 0) + tracks)->events.size(), 3U) << "none is no count";
}

TEST(AMidiFile, EndsWhereAnotherBegins) {
    const auto file = read(header(100, 1, 4) + noteTrack(60) + header(50, 1, 4) + noteTrack(62));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 1U);
    EXPECT_EQ(file->lengthUs, 1'000'000) << "200 ticks, 100 to a quarter of half a second";
}

TEST(AMidiFile, OfPatternsPlaysThemOneAfterTheOther) {
    const std::string faster("\x00\xFF\x51\x03\x03\xD0\x90" // 250,000 us a quarter
                             "\x64\x90\x3E\x40\x64\xFF\x2F\x00",
                             15);
    const auto file =
        read(header(100, 2, 3) + noteTrack(60) + chunk("MTrk", faster) + noteTrack(64));
    ASSERT_TRUE(file);
    ASSERT_EQ(file->events.size(), 3U);
    EXPECT_EQ(file->events[0].timeUs, 500'000);
    EXPECT_EQ(file->events[1].timeUs, 1'000'000 + 250'000);
    EXPECT_EQ(file->events[2].timeUs, 1'500'000 + 500'000) << "each has a tempo of its own";
    EXPECT_EQ(file->lengthUs, 2'500'000);
}

// 0FFFFFFF ticks of 16.7 s each are 142 years.
TEST(AMidiFile, OfEndlessPatternsStaysInTheOrderOfTime) {
    const std::string endless("\x00\xFF\x51\x03\xFF\xFF\xFF"
                              "\xFF\xFF\xFF\x7F\x90\x3C\x40",
                              14);
    std::string patterns;
    for (int i = 0; i < 20'000; ++i)
        patterns += chunk("MTrk", endless);
    const auto file = read(header(1, 2, 0) + patterns);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 20'000U);
    EXPECT_EQ(file->events.back().timeUs, file->lengthUs);
    EXPECT_EQ(file->lengthUs, 1'000'000'000'000'000);
}

TEST(AMidiFile, KnowsWhetherAnythingInItSounds) {
    const std::string silent("\x00\xC0\x05\x00\x90\x3C\x00\x00\xFF\x2F\x00", 11);
    const auto file = read(header(100) + chunk("MTrk", silent));
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->hasNotes()) << "a note of velocity 0 is the end of one";
    EXPECT_TRUE(file->isWhole);
    EXPECT_TRUE(read(header(100) + noteTrack(60))->hasNotes());
}

TEST(AMidiFile, ThatIsCutOffKnowsIt) {
    const std::string whole = header(100, 1, 1) + noteTrack(60);
    EXPECT_TRUE(read(whole)->isWhole);
    EXPECT_FALSE(read(whole.substr(0, whole.size() - 3))->isWhole);
}

class AMidFilePlaying : public testing::Test {
protected:
    // Winds the clock on in steps until the file is over.
    void playOut(MidiFilePlayer& player) {
        EXPECT_TRUE(test::comesTrue([this, &player] {
            log.wind(5);
            return player.mode() == TransportMode::stopped;
        }));
    }

    std::vector<PortLog::Sent> notes() { return log.ofKind(0x90); }

    void playToTheFirstNote(MidiFilePlayer& player) {
        player.play(0, player.length());
        EXPECT_TRUE(test::comesTrue([this] { return notes().size() == 1; }));
    }

    PortLog log;
};

TEST_F(AMidFilePlaying, SendsEachMessageAtItsTime) {
    MidiFilePlayer player(*read(test::shortSong()), std::make_unique<LoggedPort>(log));
    EXPECT_EQ(player.length(), 75'000);
    player.play(0, player.length());
    EXPECT_EQ(player.mode(), TransportMode::playing);
    playOut(player);
    EXPECT_EQ(player.position(), 75'000);
    ASSERT_EQ(notes().size(), 2U);
    EXPECT_EQ(notes()[1].dueNs - notes()[0].dueNs, 75'000'000);
}

TEST_F(AMidFilePlaying, StandsStillWhilePausedAndGoesOnFromThere) {
    MidiFilePlayer player(*read(test::shortSong()), std::make_unique<LoggedPort>(log));
    playToTheFirstNote(player);
    log.wind(20);
    player.pause();
    EXPECT_EQ(player.mode(), TransportMode::paused);
    EXPECT_EQ(player.position(), 20'000);
    log.wind(1000);
    EXPECT_EQ(player.position(), 20'000);
    player.resume();
    playOut(player);
    EXPECT_EQ(player.position(), 75'000);
    EXPECT_EQ(notes().back().message.byte[2], 0);
}

TEST_F(AMidFilePlaying, WaitsUntilItsDeviceCanSound) {
    log.ready = false;
    MidiFilePlayer player(*read(test::shortSong()), std::make_unique<LoggedPort>(log));
    player.play(0, player.length());
    EXPECT_TRUE(test::comesTrue([this] {
        log.wind(100);
        return log.asked >= 3;
    }));
    EXPECT_EQ(player.position(), 0);
    EXPECT_TRUE(notes().empty());
    log.ready = true;
    playOut(player);
    EXPECT_EQ(notes().size(), 2U);
}

TEST_F(AMidFilePlaying, FromTheMiddleKnowsTheProgramsBefore) {
    MidiFilePlayer player(*read(test::shortSong()), std::make_unique<LoggedPort>(log));
    player.play(60'000, player.length());
    playOut(player);
    ASSERT_EQ(notes().size(), 1U) << "the note that began before is left out";
    EXPECT_EQ(log.sent.front().message.kind(), 0xC0);
}

TEST_F(AMidFilePlaying, OfNoLengthEndsToo) {
    const std::string atOnce("\x00\x90\x3C\x40\x00\xFF\x2F\x00", 8);
    MidiFilePlayer player(*read(header(100) + chunk("MTrk", atOnce)),
                          std::make_unique<LoggedPort>(log));
    EXPECT_EQ(player.length(), 1000);
    player.play(0, player.length());
    playOut(player);
    EXPECT_EQ(player.position(), 1000);
    EXPECT_EQ(notes().size(), 1U);
}

TEST_F(AMidFilePlaying, ThatEndsEarlyReleasesWhatSounds) {
    {
        MidiFilePlayer player(*read(test::shortSong()), std::make_unique<LoggedPort>(log));
        playToTheFirstNote(player);
    }
    const auto controllers = log.ofKind(0xB0);
    EXPECT_EQ(std::count_if(controllers.begin(), controllers.end(),
                            [](const auto& sent) { return sent.message.byte[1] == 123; }),
              16);
}

} // namespace
} // namespace velorin::host

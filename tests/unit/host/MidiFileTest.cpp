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

std::string header(int division) {
    return chunk("MThd", std::string("\0\1\0\2", 4) + static_cast<char>(division >> 8) +
                             static_cast<char>(division));
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
                            "\x00\x90\xC0\x40",        // a datum that is none
                            6 + 4 + 4);
    const auto file = read(header(100) + chunk("MTrk", track));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->events.size(), 1U);
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

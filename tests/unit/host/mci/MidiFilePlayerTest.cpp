// Playing a MIDI file on a device, with a clock that is moved by hand.
#include "host/mci/MidiFilePlayer.h"
#include "MciStage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin::host {
namespace {

using test::LoggedPort;
using test::midiChunk;
using test::midiHeader;
using test::PortLog;
using test::readMidi;

class AMidFilePlaying : public testing::Test {
protected:
    // Moves the clock on in steps until the file has ended.
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
    MidiFilePlayer player(*readMidi(test::shortSong()), std::make_unique<LoggedPort>(log));
    EXPECT_EQ(player.length(), 75'000);
    player.play(0, player.length());
    EXPECT_EQ(player.mode(), TransportMode::playing);
    playOut(player);
    EXPECT_EQ(player.position(), 75'000);
    ASSERT_EQ(notes().size(), 2U);
    EXPECT_EQ(notes()[1].dueNs - notes()[0].dueNs, 75'000'000);
}

TEST_F(AMidFilePlaying, StopsWhilePausedAndContinuesFromThere) {
    MidiFilePlayer player(*readMidi(test::shortSong()), std::make_unique<LoggedPort>(log));
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

TEST_F(AMidFilePlaying, WaitsUntilItsDeviceIsReady) {
    log.ready = false;
    MidiFilePlayer player(*readMidi(test::shortSong()), std::make_unique<LoggedPort>(log));
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

TEST_F(AMidFilePlaying, FromTheMiddleSendsTheProgramsBeforeIt) {
    MidiFilePlayer player(*readMidi(test::shortSong()), std::make_unique<LoggedPort>(log));
    player.play(60'000, player.length());
    playOut(player);
    ASSERT_EQ(notes().size(), 1U) << "the note that began before is left out";
    EXPECT_EQ(log.sent.front().message.kind(), 0xC0);
}

TEST_F(AMidFilePlaying, OfNoLengthEndsToo) {
    const std::string atOnce("\x00\x90\x3C\x40\x00\xFF\x2F\x00", 8);
    MidiFilePlayer player(*readMidi(midiHeader(100) + midiChunk("MTrk", atOnce)),
                          std::make_unique<LoggedPort>(log));
    EXPECT_EQ(player.length(), 1000);
    player.play(0, player.length());
    playOut(player);
    EXPECT_EQ(player.position(), 1000);
    EXPECT_EQ(notes().size(), 1U);
}

TEST_F(AMidFilePlaying, ThatEndsEarlyReleasesItsNotes) {
    {
        MidiFilePlayer player(*readMidi(test::shortSong()), std::make_unique<LoggedPort>(log));
        playToTheFirstNote(player);
    }
    const auto controllers = log.ofKind(0xB0);
    EXPECT_EQ(std::count_if(controllers.begin(), controllers.end(),
                            [](const auto& sent) { return sent.message.byte[1] == 123; }),
              16);
}

} // namespace
} // namespace velorin::host

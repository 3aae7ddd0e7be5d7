// The two MIDI devices of a conversion: one that renders, and one that only keeps the messages.
#include "convert/LoadedScore.h"
#include "convert/PlayedMidi.h"
#include "convert/RenderedMidi.h"

#include <gtest/gtest.h>

#include <vector>

namespace velorin::convert {
namespace {

constexpr std::uint32_t noteOn = 0x64'3C'90; ///< key 60 with velocity 100

/// Logs what it gets; its sound is silent.
class LoggedRenderer final : public Renderer {
public:
    void send(const host::ShortMessage& message) override {
        log.push_back("send " + std::to_string(message.byte[1]));
    }
    void reset() override { log.emplace_back("reset"); }
    std::optional<int> render(int frames) override {
        log.push_back("render " + std::to_string(frames));
        return frames;
    }

    std::vector<std::string> log;
};

struct ARenderedDevice : testing::Test {
    LoggedRenderer renderer;
    RenderedMidi midi{renderer, 1000};
    JumpingClock clock;
    platform::MidiOutHandle handle = 0;

    ARenderedDevice() { midi.setClock(clock); }
};

void expectOneDevice(platform::MidiOut& midi) {
    EXPECT_EQ(midi.midiOutGetNumDevs(), 1);
    EXPECT_EQ(midi.midiOutGetDevCapsA(0), "File");
    EXPECT_EQ(midi.midiOutGetDevCapsA(1), "");
    platform::MidiOutHandle handle = 0;
    EXPECT_EQ(midi.midiOutOpen(handle, 1), platform::midiBadDevice);
    EXPECT_EQ(midi.midiOutOpen(handle, -2), platform::midiBadDevice);
}

TEST_F(ARenderedDevice, IsTheOnlyOne) {
    expectOneDevice(midi);
}

TEST_F(ARenderedDevice, OpensOnceAlsoAsTheMapper) {
    ASSERT_EQ(midi.midiOutOpen(handle, platform::MidiOut::mapper), platform::midiSuccess);
    platform::MidiOutHandle second = 0;
    EXPECT_EQ(midi.midiOutOpen(second, 0), platform::midiBadDevice);
}

TEST_F(ARenderedDevice, RefusesWhatIsNoMessage) {
    EXPECT_EQ(midi.midiOutShortMsg(handle, noteOn), platform::midiBadHandle) << "not open";
    ASSERT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess);
    EXPECT_EQ(midi.midiOutShortMsg(handle + 1, noteOn), platform::midiBadHandle);
    EXPECT_EQ(midi.midiOutShortMsg(handle, 0x3C), platform::midiBadParameter) << "no status";
    EXPECT_TRUE(renderer.log.empty());
}

// At 1000 frames a second, a quarter of a second is 250 frames.
TEST_F(ARenderedDevice, RendersUpToEachMessage) {
    ASSERT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess);
    clock.nowNs = 250'000'000;
    EXPECT_EQ(midi.midiOutShortMsg(handle, noteOn), platform::midiSuccess);
    EXPECT_EQ(renderer.log, (std::vector<std::string>{"render 250", "send 60"}));
}

TEST_F(ARenderedDevice, IsSilencedWhenItCloses) {
    ASSERT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess);
    clock.nowNs = 250'000'000;
    EXPECT_EQ(midi.midiOutClose(handle + 1), platform::midiBadHandle);
    EXPECT_EQ(midi.midiOutClose(handle), platform::midiSuccess);
    EXPECT_EQ(renderer.log, (std::vector<std::string>{"render 250", "reset"}));
    EXPECT_EQ(midi.midiOutClose(handle), platform::midiBadHandle) << "it is closed";
    EXPECT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess) << "it can be opened again";
}

TEST(AKeptDevice, IsTheOnlyOne) {
    KeptMidi midi;
    expectOneDevice(midi);
}

TEST(AKeptDevice, TakesMessagesOnlyDuringAPlay) {
    KeptMidi midi;
    platform::MidiOutHandle handle = 0;
    ASSERT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess);
    EXPECT_EQ(midi.midiOutShortMsg(handle, noteOn), platform::midiBadHandle);
    EXPECT_EQ(midi.midiOutClose(handle + 1), platform::midiBadHandle);
    EXPECT_EQ(midi.midiOutClose(handle), platform::midiSuccess);
}

TEST(TheChannelsOfARow, AreThoseOfItsNotesAlone) {
    PlayedSong song;
    song.messages = {
        {0, 2, host::unpack(0x64'3C'91)}, // a note on channel 1
        {0, 2, host::unpack(0x00'3C'94)}, // a note on without velocity ends a note
        {0, 2, host::unpack(0x64'3C'85)}, // a note off
        {0, 2, host::unpack(0x64'3C'93)}, // a note on channel 3
    };
    RowArray<std::uint16_t> expected{};
    expected[2] = 0b1010;
    EXPECT_EQ(channelsOfRows(song), expected);
}

} // namespace
} // namespace velorin::convert

// The device list and its handles, with built-in synthesizers alone.
#include "../Sounds.h"
#include "host/midiout/HostMidiOut.h"
#include "host/midiout/SynthSource.h"
#include "host/process/SystemClock.h"
#include "host/process/Worker.h"
#include "support/ScriptedNotices.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

namespace velorin::host {
namespace {

using platform::MidiOut;
using platform::MidiOutHandle;

class TheDevices : public testing::Test {
protected:
    scripted::ScriptedNotices notices_;
    SystemClock clock_;
    SoundEngine engine_;
    Worker worker_;
    SynthDevices synths_{
        clock_,
        engine_,
        worker_,
        {{test::anySoundFont(), "First", true}, {"/nowhere/at.sf2", "Second", true}},
        &notices_};
    MidiPorts ports_;
    HostMidiOut midi_{synths_, ports_, {}, {}, &notices_};
};

TEST_F(TheDevices, BeginWithTheSynthesizers) {
    EXPECT_GE(midi_.midiOutGetNumDevs(), 2);
    EXPECT_EQ(midi_.midiOutGetDevCapsA(0), "First");
    EXPECT_EQ(midi_.midiOutGetDevCapsA(1), "Second");
    EXPECT_EQ(midi_.midiOutGetDevCapsA(-1), "");
    EXPECT_EQ(midi_.midiOutGetDevCapsA(1000), "");
}

TEST_F(TheDevices, AreTheSameAfterALookThatWasBegun) {
    const int devices = midi_.midiOutGetNumDevs();
    midi_.beginLook();
    midi_.beginLook(); // waits for the first
    EXPECT_EQ(midi_.midiOutGetNumDevs(), devices);
    EXPECT_EQ(midi_.midiOutGetNumDevs(), devices);
    midi_.beginLook(); // the destructor waits for this one
}

TEST_F(TheDevices, OpenByNumberAndByTheMapper) {
    MidiOutHandle handle = 0;
    EXPECT_EQ(midi_.midiOutOpen(handle, MidiOut::mapper), 0U);
    EXPECT_NE(handle, 0U);
    EXPECT_EQ(midi_.midiOutClose(handle), 0U);
    EXPECT_EQ(midi_.midiOutOpen(handle, 1), 0U);
    EXPECT_EQ(midi_.midiOutClose(handle), 0U);
}

TEST_F(TheDevices, ThatDoNotExistLeaveTheHandleAlone) {
    MidiOutHandle handle = 77;
    EXPECT_NE(midi_.midiOutOpen(handle, 1000), 0U);
    EXPECT_NE(midi_.midiOutOpen(handle, -2), 0U);
    EXPECT_EQ(handle, 77U);
}

TEST_F(TheDevices, AHandleIsInvalidAfterItIsClosed) {
    MidiOutHandle first = 0;
    ASSERT_EQ(midi_.midiOutOpen(first, 0), 0U);
    EXPECT_EQ(midi_.midiOutShortMsg(first, 0x7F3C90), 0U);
    EXPECT_EQ(midi_.midiOutClose(first), 0U);
    EXPECT_NE(midi_.midiOutShortMsg(first, 0x7F3C90), 0U);
    EXPECT_NE(midi_.midiOutClose(first), 0U);
    MidiOutHandle second = 0;
    ASSERT_EQ(midi_.midiOutOpen(second, 0), 0U);
    EXPECT_NE(second, first);
    EXPECT_NE(midi_.midiOutShortMsg(first, 0x7F3C90), 0U);
    EXPECT_NE(midi_.midiOutShortMsg(0, 201), 0U);
}

TEST_F(TheDevices, OneIsOpenAtATime) {
    MidiOutHandle handle = 0;
    ASSERT_EQ(midi_.midiOutOpen(handle, 0), 0U);
    MidiOutHandle other = 0;
    EXPECT_NE(midi_.midiOutOpen(other, 1), 0U);
    EXPECT_EQ(other, 0U);
}

TEST_F(TheDevices, ASynthesizerSoundsThroughItsHandle) {
    MidiOutHandle handle = 0;
    ASSERT_EQ(midi_.midiOutOpen(handle, 0), 0U);
    midi_.midiOutShortMsg(handle, 0x7F3C90);
    worker_.waitUntilIdle();
    std::vector<float> sound(2 * 22050);
    engine_.pull(sound.data(), 22050, clock_.QueryPerformanceCounter());
    EXPECT_GE(test::onsetAfter(sound, 0, 0.001F), 0);
}

// A key of a MIDI keyboard is handled some time after it was pressed, and never after the same
// time. Its note keeps its distance from the key all the same, to a block of the stream.
TEST_F(TheDevices, AMessageSoundsAConstantTimeAfterTheMomentThatIsSet) {
    constexpr unsigned woodblock = 115; // begins at once and is over soon
    constexpr int keys = 200;
    MidiOutHandle handle = 0;
    ASSERT_EQ(midi_.midiOutOpen(handle, 0), 0U);
    worker_.waitUntilIdle();
    test::HandPulled stream(engine_);
    const auto pullMs = [&stream](int milliseconds) {
        for (int frames = milliseconds * 441 / 10; frames > 0; frames -= 256)
            stream.pull(std::min(frames, 256));
    };
    pullMs(20);
    std::int64_t earliest = std::numeric_limits<std::int64_t>::max();
    std::int64_t latest = 0;
    for (int key = 0; key < keys; ++key) {
        const std::int64_t handledLateNs = key * 31 % 70 * test::msNs / 10; // up to 7 ms
        const std::int64_t momentNs = stream.nowNs() - handledLateNs;
        const auto from = static_cast<std::int64_t>(stream.stereo.size() / 2);
        midi_.setMoment(momentNs);
        EXPECT_EQ(midi_.midiOutShortMsg(handle, 0xC0U | woodblock << 8U), 0U);
        EXPECT_EQ(midi_.midiOutShortMsg(handle, 0x7F4C90), 0U);
        midi_.setMoment(std::nullopt);
        pullMs(120 + key % 13);
        const std::int64_t onset = test::onsetAfter(stream.stereo, from, 0.01F);
        ASSERT_GE(onset, 0) << "nothing is heard of key " << key;
        const std::int64_t momentFrame =
            (momentNs - test::HandPulled::startNs) * streamRateHz / 1'000'000'000;
        earliest = std::min(earliest, onset - momentFrame);
        latest = std::max(latest, onset - momentFrame);
        pullMs(200);
    }
    EXPECT_GE(earliest, SoundEngine::delayFrames);
    EXPECT_LE(latest - earliest, blockFrames);
}

TEST_F(TheDevices, ASoundFontThatCannotBeLoadedIsReportedInTheWindowOnce) {
    MidiOutHandle handle = 0;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(midi_.midiOutOpen(handle, 1), 0U);
        EXPECT_EQ(midi_.midiOutShortMsg(handle, 0x7F3C90), 0U);
        midi_.midiOutClose(handle);
    }
    worker_.waitUntilIdle();
    ASSERT_EQ(notices_.posted.size(), 1U);
    EXPECT_EQ(notices_.posted[0].text,
              "The SoundFont \"/nowhere/at.sf2\" cannot be read, so its device is silent. Choose "
              "another device in the Setup Toolbar.");
}

// After a MID file the program may try to open a device that does not exist; the next song is then
// silent.
TEST_F(TheDevices, OneThatCouldNotBeOpenedIsReportedWhenItShouldSound) {
    MidiOutHandle handle = 0;
    ASSERT_EQ(midi_.midiOutOpen(handle, 0), 0U);
    midi_.midiOutClose(handle);
    EXPECT_NE(midi_.midiOutShortMsg(handle, 0x7F3C90), 0U); // closed, not refused
    EXPECT_TRUE(notices_.posted.empty());
    EXPECT_NE(midi_.midiOutOpen(handle, 1000), 0U);
    EXPECT_TRUE(notices_.posted.empty()) << "nothing was to be heard yet";
    for (int note = 0; note < 3; ++note)
        EXPECT_NE(midi_.midiOutShortMsg(handle, 0x7F3C90), 0U);
    ASSERT_EQ(notices_.posted.size(), 1U);
    EXPECT_EQ(notices_.posted[0].text,
              "Nothing is heard because the MIDI device could not be opened. Click \"Stop all "
              "sound\" to open it again, or choose another one in the Setup Toolbar.");
}

} // namespace
} // namespace velorin::host

// The device list and its handles, with built-in synthesizers alone.
#include "Sounds.h"
#include "host/HostMidiOut.h"
#include "host/SynthSource.h"
#include "host/SystemClock.h"
#include "host/Worker.h"
#include "support/ScriptedNotices.h"

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

TEST_F(TheDevices, OpenByNumberAndByTheMapper) {
    MidiOutHandle handle = 0;
    EXPECT_EQ(midi_.midiOutOpen(handle, MidiOut::mapper), 0U);
    EXPECT_NE(handle, 0U);
    EXPECT_EQ(midi_.midiOutClose(handle), 0U);
    EXPECT_EQ(midi_.midiOutOpen(handle, 1), 0U);
    EXPECT_EQ(midi_.midiOutClose(handle), 0U);
}

TEST_F(TheDevices, ThatAreNotThereLeaveTheHandleAlone) {
    MidiOutHandle handle = 77;
    EXPECT_NE(midi_.midiOutOpen(handle, 1000), 0U);
    EXPECT_NE(midi_.midiOutOpen(handle, -2), 0U);
    EXPECT_EQ(handle, 77U);
}

TEST_F(TheDevices, AHandleDiesWhenItIsClosed) {
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

// A MID file that plays leaves a device behind that is not there, and the next song is silent.
TEST_F(TheDevices, OneThatWasRefusedIsToldOfWhenItShouldSound) {
    MidiOutHandle handle = 0;
    ASSERT_EQ(midi_.midiOutOpen(handle, 0), 0U);
    midi_.midiOutClose(handle);
    EXPECT_NE(midi_.midiOutShortMsg(handle, 0x7F3C90), 0U); // closed in order
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

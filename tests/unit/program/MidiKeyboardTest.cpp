// Switching a MIDI keyboard on and off, losing it, and what the next run remembers.
#include "program/MidiKeyboard.h"

#include "platform/MidiIn.h"
#include "platform/MidiOut.h"
#include "session/Session.h"
#include "support/ScriptedMidiIn.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct MidiKeyboardTest : testing::Test {
    MidiKeyboardTest() { host.platform.midiIn = &input; }

    void key(std::uint8_t status, std::uint8_t number, std::uint8_t velocity) const {
        input.onMessage({0, status, number, velocity});
    }

    scripted::ScriptedPlatform host;
    scripted::ScriptedMidiIn input;
    Session session{host.platform};
    std::vector<std::string> said;
    MidiKeyboard keyboard{host.platform, session,
                          [this](const std::string& line) { said.push_back(line); }};
};

TEST_F(MidiKeyboardTest, WithoutOneTheUserIsTold) {
    input.names.clear();
    keyboard.toggle();
    EXPECT_FALSE(keyboard.isOn());
    EXPECT_EQ(said.back(), "No MIDI keyboard is connected. Connect one, then press Ctrl+K again.");
    host.platform.midiIn = nullptr;
    keyboard.toggle();
    EXPECT_EQ(said.size(), 2U);
}

TEST_F(MidiKeyboardTest, TheOnlyOneIsTakenAndItsKeysSound) {
    session.sounding.openDevice(0);
    keyboard.toggle();
    EXPECT_TRUE(keyboard.isOn());
    EXPECT_EQ(said.back(), "\"Keys\" plays on the channel that is chosen. Ctrl+K switches it off.");
    key(0x95, 60, 1);
    EXPECT_EQ(host.midi.log.back(), "0.000 90 3C 7F") << "the row decides on channel and volume";
    key(0x95, 60, 0);
    EXPECT_EQ(host.midi.log.back(), "0.000 80 3C 00");
    const std::size_t before = host.midi.log.size();
    key(0xB0, 1, 64);
    EXPECT_EQ(host.midi.log.size(), before);
    key(0x90, 62, 100);
    keyboard.toggle();
    EXPECT_EQ(host.midi.log.back(), "0.000 80 3E 00") << "a key that is held must not sound on";
    EXPECT_EQ(input.opened, "");
    EXPECT_EQ(said.back(), "The MIDI keyboard is off.");
}

TEST_F(MidiKeyboardTest, KeysAndThePedalAreReportedAfterTheySound) {
    std::vector<std::string> reported;
    keyboard.onKey = [&](int key_, bool isPressed) {
        reported.push_back(host.midi.log.back() + (isPressed ? " down " : " up ") +
                           std::to_string(key_));
    };
    keyboard.onPedal = [&](int value) { reported.push_back("pedal " + std::to_string(value)); };
    keyboard.onSilenced = [&] { reported.emplace_back("silence"); };
    session.sounding.openDevice(0);
    keyboard.toggle();
    key(0x90, 60, 100);
    key(0x80, 60, 0);
    key(0xB3, 64, 127);
    key(0xB3, 66, 127); // another pedal
    keyboard.toggle();
    EXPECT_EQ(reported, (std::vector<std::string>{"0.000 90 3C 7F down 60", "0.000 80 3C 00 up 60",
                                                  "pedal 127", "silence"}));
}

/// Stores the moment of each message.
class MomentMidi final : public platform::MidiOut {
public:
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "Synth"; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int) override {
        handle = 1;
        return platform::midiSuccess;
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return platform::midiSuccess; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t) override {
        moments.push_back(moment_);
        return platform::midiSuccess;
    }
    void setMoment(std::optional<std::int64_t> counter) override { moment_ = counter; }

    std::vector<std::optional<std::int64_t>> moments;

private:
    std::optional<std::int64_t> moment_;
};

// The distance from the key to its sound is then the same for every key, however busy the program
// was meanwhile.
TEST(MidiKeyboardMoment, EveryMessageOfAKeyHasTheMomentOfTheKey) {
    scripted::ScriptedPlatform host;
    scripted::ScriptedMidiIn input;
    MomentMidi midi;
    const platform::Platform& is = host.platform;
    platform::Platform platform{
        is.clock,   is.loop,          midi,       is.mci,   is.dialogs, is.boxes,
        is.files,   is.settings,      is.desktop, is.menus, is.timers,  is.systemFiles,
        is.encoder, is.programFolder, nullptr,    nullptr,  &input};
    Session session(platform);
    MidiKeyboard keyboard(platform, session, [](const std::string&) {});
    session.sounding.openDevice(0);
    keyboard.toggle();
    for (int i = 0; i < 200; ++i) {
        midi.moments.clear();
        const std::int64_t stamp = 1'000'000 + i * 7'654'321LL;
        input.onMessage({stamp, 0x90, 60, 100});
        input.onMessage({stamp, 0x80, 60, 0});
        ASSERT_EQ(midi.moments.size(), 5U) << "bank, bank, program, on, off";
        for (const auto& moment : midi.moments)
            EXPECT_EQ(moment, stamp);
    }
    session.sounding.ChangeInstrument(1, 0);
    EXPECT_EQ(midi.moments.back(), std::nullopt) << "of the key alone";
}

TEST_F(MidiKeyboardTest, OfSeveralTheUserChooses) {
    input.names = {"Left", "Right"};
    host.menus.choices.push_back("1");
    keyboard.toggle();
    EXPECT_EQ(input.opened, "Right");
    keyboard.toggle();
    host.menus.choices.push_back("");
    keyboard.toggle();
    EXPECT_FALSE(keyboard.isOn());
    EXPECT_EQ(input.opened, "");
}

TEST_F(MidiKeyboardTest, ALostOneIsSaidOnceAndTakenUpAgain) {
    keyboard.toggle();
    said.clear();
    keyboard.check();
    EXPECT_TRUE(said.empty());
    input.names.clear();
    keyboard.check();
    keyboard.check();
    EXPECT_EQ(said, (std::vector<std::string>{
                        "\"Keys\" is not connected any more. It plays again when it is back."}));
    input.names = {"Others", "Keys"};
    keyboard.check();
    EXPECT_EQ(said.back(), "\"Keys\" is back.");
    EXPECT_EQ(input.opened, "Keys");
}

TEST_F(MidiKeyboardTest, TheNextRunGoesOnWithIt) {
    keyboard.toggle();
    keyboard.end();
    said.clear();
    MidiKeyboard next(host.platform, session,
                      [this](const std::string& line) { said.push_back(line); });
    next.resume();
    EXPECT_TRUE(next.isOn());
    EXPECT_EQ(input.opened, "") << "the start must not wait for the MIDI system";
    next.check();
    EXPECT_EQ(input.opened, "Keys");
    EXPECT_TRUE(said.empty());
    next.toggle();
    MidiKeyboard third(host.platform, session, {});
    third.resume();
    EXPECT_FALSE(third.isOn());
}

TEST_F(MidiKeyboardTest, TheNextRunSaysThatItIsNotThere) {
    keyboard.toggle();
    keyboard.end();
    input.names.clear();
    MidiKeyboard next(host.platform, session,
                      [this](const std::string& line) { said.push_back(line); });
    next.resume();
    next.check();
    EXPECT_EQ(said.back(), "\"Keys\" is not connected. It plays as soon as it is.");
    input.names = {"Keys"};
    next.check();
    EXPECT_EQ(said.back(), "\"Keys\" is back.");
}

TEST_F(MidiKeyboardTest, OneThatCannotBeOpenedIsSaid) {
    class Closed final : public platform::MidiIn {
        std::vector<std::string> ports() override { return {"Keys"}; }
        bool open(const std::string&) override { return false; }
        void close() override {}
        bool isConnected() override { return false; }
    };
    Closed closed;
    host.platform.midiIn = &closed;
    keyboard.toggle();
    EXPECT_EQ(said.back(), "\"Keys\" cannot be opened. Another program may use it.");
    EXPECT_FALSE(keyboard.isOn());
    host.platform.midiIn = &input; // the keyboard lives longer than the closed one
}

} // namespace
} // namespace velorin

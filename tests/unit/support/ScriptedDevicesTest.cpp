// The logs and the refusals of the scripted devices, files and dialogs.
#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <istream>
#include <iterator>
#include <ostream>

using namespace scripted;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScriptedMidi, MessagesAreLoggedAsPacked) {
    ScriptedPlatform host;
    platform::MidiOutHandle handle = 0;
    EXPECT_EQ(host.midi.midiOutOpen(handle, 0), 0U);
    host.time.hold(120);
    host.midi.midiOutShortMsg(handle, 0x7F4390);
    host.midi.midiOutShortMsg(handle, 0x18C0);
    host.midi.midiOutClose(handle);
    EXPECT_THAT(host.midi.log,
                ElementsAre("0.000 open 0", "0.120 90 43 7F", "0.120 C0 18", "0.120 close"));
}

TEST(ScriptedMidi, WhatGoesToNoOpenDeviceLeavesNoLine) {
    ScriptedPlatform host;
    EXPECT_NE(host.midi.midiOutShortMsg(0, 201), 0U);
    EXPECT_NE(host.midi.midiOutClose(7), 0U);
    EXPECT_THAT(host.midi.log, IsEmpty());
}

TEST(ScriptedMidi, DeviceWithAnExclamationMarkFailsToOpen) {
    ScriptedPlatform host;
    host.midi.setDevices({"!Broken", "Whole"});
    platform::MidiOutHandle handle = 9;
    EXPECT_EQ(host.midi.midiOutGetDevCapsA(0), "Broken");
    EXPECT_NE(host.midi.midiOutOpen(handle, 0), 0U);
    EXPECT_EQ(handle, 9U);
    EXPECT_EQ(host.midi.midiOutOpen(handle, platform::MidiOut::mapper), 0U);
    host.midi.setDevices({});
    EXPECT_NE(host.midi.midiOutOpen(handle, platform::MidiOut::mapper), 0U);
    EXPECT_THAT(host.midi.log, ElementsAre("0.000 fail 0", "0.000 open -1", "0.000 fail -1"));
}

TEST(ScriptedMci, NewestMatchingReplyCountsWhateverItsCase) {
    ScriptedPlatform host;
    host.mci.reply("Status sound", 0, "playing");
    host.mci.reply("status SOUND mode", 5, "stopped");
    std::string text = "before";
    EXPECT_EQ(host.mci.mciSendStringA("status sound mode", &text), 5U);
    EXPECT_EQ(text, "stopped");
    EXPECT_EQ(host.mci.mciSendStringA("status sound position", &text), 0U);
    EXPECT_EQ(text, "playing");
    EXPECT_EQ(host.mci.mciSendStringA("close all", nullptr), 0U);
    EXPECT_EQ(host.mci.mciGetErrorStringA(263), "error 263");
}

TEST(ScriptedFiles, ReadOnlyFolderRefusesEveryChange) {
    ScriptedPlatform host;
    const std::string folder = host.folder.path().string();
    EXPECT_TRUE(host.files.createFolder(folder + "/locked"));
    *host.files.openForOutput(folder + "\\LOCKED\\b.txt") << "kept";
    host.files.makeReadOnly(folder + "/locked");
    EXPECT_EQ(host.files.openForOutput(folder + "/locked/c.txt"), nullptr);
    EXPECT_EQ(host.files.openForBinary(folder + "/locked/b.txt"), nullptr);
    EXPECT_FALSE(host.files.remove(folder + "/locked/B.txt"));
    EXPECT_EQ(host.files.replace(folder + "/locked/b.txt", "new"), platform::WriteError::readOnly);
    EXPECT_EQ(host.files.overwrite(folder + "/locked/b.txt", "n"), platform::WriteError::readOnly);
    EXPECT_FALSE(host.files.createFolder(folder + "/locked/inner"));
    const auto stream = host.files.openForInput(folder + "/locked/b.txt");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream), {}), "kept");
}

TEST(ScriptedFiles, BinaryWritingKeepsTheOldTail) {
    ScriptedPlatform host;
    const std::string name = host.folder.path().string() + "/a.mid";
    *host.files.openForOutput(name) << "0123456789";
    *host.files.openForBinary(name) << "ab";
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*host.files.openForInput(name)), {}),
              "ab23456789");
}

TEST(ScriptedMenus, EntryThatTheMenuDoesNotHaveChoosesNothing) {
    ScriptedPlatform host;
    const std::vector<platform::PopupEntry> entries{
        {"mnuCut", "Cut"}, {"mnuBar", ""}, {"mnuLoop", "Loop", true}};
    host.menus.choices = {"mnuCut", "mnuNone"};
    EXPECT_EQ(host.menus.PopupMenu("mnupopup", entries), "mnuCut");
    EXPECT_EQ(host.menus.PopupMenu("mnupopup", entries), "");
    EXPECT_EQ(host.menus.PopupMenu("mnupopup", entries), "");
    EXPECT_EQ(host.menus.log.front(), "mnupopup;Cut;-;*Loop");
}

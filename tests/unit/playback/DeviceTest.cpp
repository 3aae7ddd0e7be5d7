// Opening and closing the device, choosing instruments, and the commands that end all sound.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct Device : testing::Test, PlaybackStage {};

TEST_F(Device, IsClosedAndOpenedAgain) {
    sounding.Device_Click();
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 open 0"}));
    EXPECT_EQ(sounding.MidiDeviceIndex, 0);
    EXPECT_EQ(sounding.MidiResult, 0U);
    EXPECT_EQ(setup.device, 1);
}

TEST_F(Device, Entry0OfTheListIsTheMapper) {
    setup.device = 0;
    sounding.Device_Click();
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 open -1"}));
}

TEST_F(Device, OneThatCannotBeOpenedIsFollowedByTheNextOnce) {
    host.midi.setDevices({"!A", "B"});
    sounding.Device_Click();
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 fail 0", "0.000 open 1"}));
    EXPECT_EQ(setup.device, 1); // the list keeps its entry
    EXPECT_EQ(sounding.MidiDeviceIndex, 0);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 90 3C 7F"}));
}

TEST_F(Device, AfterTwoFailuresTheDeadHandleStaysAndNothingIsHeard) {
    const auto before = sounding.MidiHandle;
    host.midi.setDevices({"!A", "!B", "C"});
    sounding.Device_Click();
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 fail 0", "0.000 fail 1"}));
    EXPECT_EQ(sounding.MidiHandle, before);
    EXPECT_NE(sounding.MidiResult, 0U);
    sounding.StartNote(67, 0);
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(Device, TheMainWindowsOwnListOpensItToo) {
    sounding.Combo2_Click();
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 open 0"}));
}

TEST_F(Device, Program127IsThreeMessages) {
    sounding.PercussionRow[4] = flagSet;
    sounding.ChangeInstrument(127, 4);
    EXPECT_EQ(midi(), (Lines{"0.000 B4 00 00", "0.000 B4 20 00", "0.000 C4 7F"}));
    EXPECT_EQ(sounding.PercussionRow[4], flagClear);
}

TEST_F(Device, Instrument128IsKey35AndNoMessage) {
    sounding.ChangeInstrument(128, 4);
    EXPECT_EQ(midi(), Lines{});
    EXPECT_EQ(sounding.PercussionRow[4], flagSet);
    EXPECT_EQ(sounding.PercussionKey[4], 35);
}

TEST_F(Device, AMelodicSoundOfAPercussionRowIsSelectedOnTheChannelOfTheRow) {
    sounding.ChangeInstrument(5, 12);
    EXPECT_EQ(midi(), (Lines{"0.000 BC 00 00", "0.000 BC 20 00", "0.000 CC 05"}));
}

// 0xC0 less 0x100 is -0x40: the status byte stays C0 and every byte after it is FF.
TEST_F(Device, ANegativeInstrumentBorrows) {
    sounding.ChangeInstrument(-1, 0);
    EXPECT_EQ(midi(), (Lines{"0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 FF"}));
    sounding.ChangeInstrument(-129, 0); // 256 times this is outside 16 bits
    EXPECT_EQ(midi(), (Lines{"0.000 B0 00 00", "0.000 B0 20 00"}));
}

TEST_F(Device, AChosenInstrumentGoesToTheCurrentRow) {
    setup.instrument = 40;
    studio.score.CurrentRow = 3;
    sounding.Combo1_Click();
    EXPECT_EQ(desk.instxt, "40");
    EXPECT_EQ(studio.score.RowInstrument[3], 40);
    EXPECT_EQ(sounding.SoundRow, 3);
    EXPECT_EQ(midi(), (Lines{"0.000 B3 00 00", "0.000 B3 20 00", "0.000 C3 28"}));
}

TEST_F(Device, WithNothingSelectedTheInstrumentIs0) {
    setup.instrument = -1;
    sounding.Combo1_Click();
    EXPECT_EQ(desk.instxt, "0");
    EXPECT_EQ(studio.score.RowInstrument[0], 0);
}

TEST_F(Device, AChosenPercussionSoundIsKeptAsTheLastChoice) {
    setup.percussion = 2;
    studio.score.CurrentRow = 8;
    sounding.Combo5_Click();
    EXPECT_EQ(desk.instxt, "130");
    EXPECT_EQ(sounding.PercussionChoice, 130);
    EXPECT_EQ(studio.score.RowInstrument[8], 130);
    EXPECT_EQ(sounding.PercussionKey[8], 37);
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(Device, TheNumberBoxIsReadByItsPrefix) {
    desk.instxt = "17 strings";
    sounding.Command9_Click();
    EXPECT_EQ(studio.score.RowInstrument[0], 17);
    desk.instxt = "none";
    sounding.Command9_Click();
    EXPECT_EQ(studio.score.RowInstrument[0], 0);
}

TEST_F(Device, ANumberThatIsNoInstrumentAtAllChangesNone) {
    studio.score.RowInstrument[0] = 17;
    desk.instxt = "99999";
    sounding.Command9_Click();
    EXPECT_EQ(studio.score.RowInstrument[0], 17);
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(Device, ASelectionReVoicesItsNotesOnTheCurrentRowOnly) {
    write(0, "60 60 = . 60 60", 1);
    write(1, "60 60 60", 1);
    studio.score.SelectStart = 1;
    studio.score.SelectEnd = 4;
    setup.instrument = 9;
    sounding.Combo1_Click();
    const auto& instruments = studio.score.InstrumentArray;
    EXPECT_EQ(instruments.at(0, 0), 1);
    EXPECT_EQ(instruments.at(0, 1), 9);
    EXPECT_EQ(instruments.at(0, 2), 9);
    EXPECT_EQ(instruments.at(0, 3), 0); // a rest stays a rest
    EXPECT_EQ(instruments.at(0, 4), 9);
    EXPECT_EQ(instruments.at(0, 5), 1);
    EXPECT_EQ(instruments.at(1, 1), 1);
}

TEST_F(Device, StopSoundReopensItAndSendsTheCurrentRowsInstrument) {
    studio.run.IsPlaying = flagSet;
    sounding.StopSound();
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    EXPECT_EQ(midi(), (Lines{"0.000 close", "0.000 open 0", "0.000 B0 00 00", "0.000 B0 20 00",
                             "0.000 C0 18"}));
    EXPECT_EQ(host.mci.log, Lines{});
}

TEST_F(Device, StopAllAlsoClosesWhatPlays) {
    studio.run.IsPlaying = flagSet;
    sounding.Command32_Click();
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    EXPECT_EQ(midi().size(), 5U);
    EXPECT_EQ(host.mci.log, (Lines{"0.000 stop sound", "0.000 close sound", "0.000 stop midi",
                                   "0.000 close midi"}));
}

TEST_F(Device, StopallSoundLeavesItAlone) {
    sounding.StopallSound();
    EXPECT_EQ(midi(), Lines{});
    EXPECT_EQ(host.mci.log, (Lines{"0.000 stop sound", "0.000 close sound", "0.000 stop midi",
                                   "0.000 close midi", "0.000 close all"}));
}

TEST_F(Device, IsClosedForGoodAtTheEnd) {
    sounding.stopitall();
    EXPECT_EQ(midi(), (Lines{"0.000 close"}));
    EXPECT_EQ(host.mci.log, (Lines{"0.000 close all"}));
}

} // namespace
} // namespace velorin

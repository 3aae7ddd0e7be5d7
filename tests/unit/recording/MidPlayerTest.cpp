// A MID file from its start to its end, and the recording that ends with it.
#include "RecordingStage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

class MidPlayer : public testing::Test, protected RecordingStage {};

TEST_F(MidPlayer, RunsAMidFileToItsEnd) {
    desk.texts[RecordText::Text6] = write("A.mid", "MThd");
    host.midi.setDevices({"A", "B", "C"});
    studio.setup.setCombo2(1);
    host.mci.reply("status midi length", 0, "40");
    host.mci.reply("status midi position", 0, "10");
    in(0.3, [this] { host.mci.reply("status midi position", 0, "40"); });
    player.Cmd2_Click(1);
    const std::string name = inFolder("a.mid");
    EXPECT_EQ(sent(),
              (Lines{"0.000 status midi mode", "0.000 stop midi", "0.000 close midi",
                     "0.000 open sequencer!" + name + " alias midi", "0.000 play midi",
                     "0.250 status midi length", "0.250 status midi position",
                     "0.500 status midi length", "0.500 status midi position", "0.500 stop sound",
                     "0.500 close sound", "0.500 stop midi", "0.500 close midi"}));
    EXPECT_EQ(host.midi.log, (Lines{"0.000 open 2", "0.500 close", "0.500 open 0", "0.500 B0 00 00",
                                    "0.500 B0 20 00", "0.500 C0 18"}));
    EXPECT_EQ(desk.statuses, (Lines{"25 %", "100 %", ""}));
    EXPECT_EQ(studio.run.SoundFinished, flagSet);
}

TEST_F(MidPlayer, PausesAndResumesAMidByItsMode) {
    desk.texts[RecordText::Text6] = write("a.mid", "MThd");
    host.mci.reply("status midi length", 0, "40");
    host.mci.reply("status midi position", 0, "40");
    player.Cmd2_Click(2);
    EXPECT_EQ(sent()[1], "0.000 pause midi");
    host.mci.reply("status midi mode", 0, "paused");
    player.Cmd2_Click(2);
    EXPECT_EQ(sent()[1], "0.250 resume midi");
}

TEST_F(MidPlayer, LeavesAMissingMidAlone) {
    desk.texts[RecordText::Text6] = inFolder("a.mid");
    player.Cmd2_Click(1);
    EXPECT_TRUE(sent().empty());
}

TEST_F(MidPlayer, StopsAMidAndClearsTheProgress) {
    desk.texts[RecordText::Text6] = "a.mid";
    desk.barWidth = 20.0;
    player.Cmd2_Click(3);
    EXPECT_EQ(sent(), (Lines{"0.000 stop midi", "0.000 close midi"}));
    EXPECT_EQ(desk.barWidth, 1.0);
}

TEST_F(MidPlayer, PollsNothingOfAMidUnderAnotherName) {
    desk.texts[RecordText::Text6] = "a.wav";
    player.midipos();
    EXPECT_TRUE(sent().empty());
}

TEST_F(MidPlayer, EndsARecordingWithTheMidFile) {
    desk.texts[RecordText::Text6] = write("a.mid", "MThd");
    studio.run.RecordingFlag = flagSet;
    studio.run.SoundFinished = flagSet;
    studio.run.WavFileName = "r.wav";
    host.mci.reply("status midi length", 0, "40");
    host.mci.reply("status midi position", 0, "40");
    player.RunMidiFile();
    EXPECT_EQ(studio.run.RecordingFlag, flagClear);
    const Lines all = sent();
    EXPECT_NE(std::find(all.begin(), all.end(), "0.250 save capture r.wav"), all.end());
}

} // namespace
} // namespace velorin

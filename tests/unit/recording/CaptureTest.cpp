// A recording from its click to its end: the command strings in order, and the state of the window.
#include "RecordingStage.h"

#include "platform/Settings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

class Recording : public testing::Test, protected RecordingStage {
protected:
    Recording() {
        studio.run.SongsFolder = "Songs";
        // A score that plays for two seconds. Its end also ends the recording.
        mainDesk.onPlay = [this] { host.time.pass(2 * scripted::nanosecondsPerSecond); };
    }
    [[nodiscard]] Lines formatOf(int row) {
        desk.lists[RecordList::cbxFormat] = row;
        mainDesk.onPlay = nullptr;
        capture.StartTrackRecording();
        return {sent()[5]};
    }
};

TEST_F(Recording, OfAScoreSendsItsStringsInOrder) {
    host.desktop.randoms = {0.5};
    capture.Cmdrecord_Click();
    EXPECT_EQ(sent(), (Lines{"0.000 stop sound", "0.000 close sound", "0.000 stop midi",
                             "0.000 close midi", "0.000 open new type waveaudio alias capture",
                             "0.000 set capture samplespersec 44100 channels 2 bitspersample 16 "
                             "alignment 4 bytespersec 176400",
                             "0.000 record capture", "0.000 stop sound", "0.000 close sound",
                             "0.000 stop midi", "0.000 close midi", "2.000 stop capture",
                             "2.000 save capture Songs/50000tmp.wav", "2.000 close capture",
                             "2.000 stop midi", "2.000 close midi"}));
    EXPECT_EQ(mainDesk.log,
              (Lines{"Instxt 24", "chkgraphics 0", "Instxt 24", "tableaux 0", "tableaux 1"}));
}

TEST_F(Recording, ReopensTheMidiOutputBeforeAndAfterTheStartOfTheDevice) {
    capture.Cmdrecord_Click();
    EXPECT_EQ(host.midi.log, (Lines{"0.000 open -1", "0.000 B0 00 00", "0.000 B0 20 00",
                                    "0.000 C0 18", "0.000 close", "0.000 open -1", "0.000 B0 00 00",
                                    "0.000 B0 20 00", "0.000 C0 18"}));
}

TEST_F(Recording, NamesItsFilesByARandomNumber) {
    capture.Cmdrecord_Click(); // the random number 0 gives the first name
    EXPECT_EQ(studio.run.WavFileName, "Songs/1tmp.wav");
    host.desktop.randoms = {0.99999};
    capture.Cmdrecord_Click();
    EXPECT_EQ(desk.texts[RecordText::InputPath], "Songs/99999tmp.wav");
    EXPECT_EQ(desk.texts[RecordText::OutPutPath], "Songs/99999tmp.mp3");
    EXPECT_EQ(desk.texts[RecordText::Text6], "Songs/99999tmp.wav");
}

TEST_F(Recording, LocksTheSourceAndThePlayerWhileItRuns) {
    in(1.0, [this] {
        EXPECT_EQ(desk.captions[RecordCaption::Label1], "Stop Recording");
        EXPECT_EQ(desk.captions[RecordCaption::Label8], "Recording");
        EXPECT_EQ(desk.rec, RecordPicture::RecNT);
        EXPECT_FALSE(desk.panels[RecordPanel::Picture2]);
        EXPECT_FALSE(desk.panels[RecordPanel::Picture7]);
        EXPECT_EQ(studio.run.RecordingFlag, flagSet);
    });
    capture.Cmdrecord_Click();
    EXPECT_EQ(desk.captions[RecordCaption::Label1], "Start Recording");
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "Stopped");
    EXPECT_EQ(desk.rec, RecordPicture::RecUP);
    EXPECT_TRUE(desk.panels[RecordPanel::Picture2]);
    EXPECT_TRUE(desk.panels[RecordPanel::Picture7]);
    EXPECT_TRUE(desk.timer10);
}

TEST_F(Recording, TakesEachOfTheNineFormats) {
    const Lines expected{
        "samplespersec 22050 channels 1 bitspersample 8 alignment 1 bytespersec 22050",
        "samplespersec 22050 channels 2 bitspersample 8 alignment 2 bytespersec 44100",
        "samplespersec 22050 channels 1 bitspersample 16 alignment 2 bytespersec 44100",
        "samplespersec 22050 channels 2 bitspersample 16 alignment 4 bytespersec 88200",
        "samplespersec 44100 channels 1 bitspersample 8 alignment 1 bytespersec 44100",
        "samplespersec 44100 channels 2 bitspersample 8 alignment 2 bytespersec 88200",
        "samplespersec 44100 channels 1 bitspersample 16 alignment 2 bytespersec 88200",
        "samplespersec 44100 channels 2 bitspersample 16 alignment 4 bytespersec 176400",
        "samplespersec 48000 channels 2 bitspersample 16 alignment 4 bytespersec 192000"};
    for (int row = 0; row < 9; ++row)
        EXPECT_EQ(formatOf(row),
                  Lines{"0.000 set capture " + expected[static_cast<std::size_t>(row)]});
}

TEST_F(Recording, KeepsBitsAndChannelsUnderAnUnknownFormat) {
    (void)formatOf(7);
    EXPECT_EQ(formatOf(9), Lines{"0.000 set capture samplespersec 0 channels 2 bitspersample 16 "
                                 "alignment 4 bytespersec 0"});
}

TEST_F(Recording, GoesOnWithoutADeviceAndStopsAtARefusedFormat) {
    host.mci.reply("open new", 263, "");
    host.mci.reply("set capture", 263, "");
    capture.Cmdrecord_Click();
    EXPECT_EQ(boxes(), (Lines{"critical;Velorin;Error opening waveaudio",
                              "critical;Velorin;Error setting recording paramaters"}));
    EXPECT_EQ(sent().back(), "0.000 close capture");
    EXPECT_EQ(desk.captions[RecordCaption::Label1], "Stop Recording");
    EXPECT_FALSE(desk.panels[RecordPanel::Picture2]);
}

TEST_F(Recording, WithoutItsFolderIsARecordingError) {
    mainDesk.folderIsThere = false;
    capture.Cmdrecord_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;Recording error"});
    EXPECT_TRUE(sent().empty());
}

TEST_F(Recording, ShowsThePositionAsItsBoxSays) {
    desk.checks[RecordCheck::Check4] = true;
    studio.run.ShowNotePosition = flagClear;
    capture.Cmdrecord_Click();
    EXPECT_EQ(studio.run.ShowNotePosition, flagSet);
    EXPECT_EQ(mainDesk.log[1], "chkgraphics 1");
    desk.checks[RecordCheck::Check4] = false;
    capture.Cmdrecord_Click();
    EXPECT_EQ(studio.run.ShowNotePosition, flagClear);
}

TEST_F(Recording, StoppedByHandEndsTwice) {
    mainDesk.onPlay = [this] {
        while (studio.run.IsPlaying.isSet())
            host.time.waitUntil(host.time.now() + scripted::nanosecondsPerSecond);
    };
    in(1.5, [this] { capture.Cmdrecord_Click(); });
    capture.Cmdrecord_Click();
    const Lines all = sent();
    EXPECT_EQ(std::count(all.begin(), all.end(), "1.500 save capture Songs/1tmp.wav"), 2);
}

TEST_F(Recording, ClearsTheFlagByHandOnlyUnderAMidName) {
    desk.captions[RecordCaption::Label1] = "Stop Recording";
    studio.run.RecordingFlag = flagSet;
    studio.run.WavFileName = "a.wav";
    capture.Cmdrecord_Click();
    EXPECT_EQ(studio.run.RecordingFlag, flagSet);
    desk.captions[RecordCaption::Label1] = "Stop Recording";
    studio.run.WavFileName = "a.MID";
    capture.Cmdrecord_Click();
    EXPECT_EQ(studio.run.RecordingFlag, flagClear);
}

TEST_F(Recording, EncodesASecondAfterItsEnd) {
    desk.checks[RecordCheck::Check2] = true;
    host.encoder.absent = true;
    capture.Cmdrecord_Click();
    EXPECT_EQ(host.time.now(), 3 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(boxes(), Lines{"critical;Critical Error;Encoding library not found...can't encode."});
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "Encoding");
}

TEST_F(Recording, LeavesAnEncodingThatRunsAlone) {
    desk.checks[RecordCheck::Check2] = true;
    desk.captions[RecordCaption::Command20] = "Stop Encoding";
    capture.Cmdrecord_Click();
    EXPECT_EQ(desk.captions[RecordCaption::Command20], "Stop Encoding");
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "Stopped");
}

TEST_F(Recording, FromAMidFileEndsWithIt) {
    desk.sourceIsMid = true;
    desk.texts[RecordText::Text6] = write("a.mid", "MThd");
    host.mci.reply("status midi length", 0, "40");
    host.mci.reply("status midi position", 0, "20");
    in(0.3, [this] { host.mci.reply("status midi position", 0, "40"); });
    capture.Cmdrecord_Click();
    const Lines all = sent();
    EXPECT_EQ(all[11], "0.000 status midi mode");
    EXPECT_EQ(all[all.size() - 5], "0.500 stop capture");
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "Stopped");
}

TEST_F(Recording, EndsThroughItsImageWithoutAChangeOfCaptions) {
    desk.captions[RecordCaption::Label1] = "Stop Recording";
    studio.run.WavFileName = "a.wav";
    studio.run.IsPlaying = flagSet;
    capture.CmdStart_Click();
    EXPECT_EQ(sent(), (Lines{"0.000 stop capture", "0.000 save capture a.wav",
                             "0.000 close capture", "0.000 stop sound", "0.000 close sound",
                             "0.000 stop midi", "0.000 close midi", "0.000 close all"}));
    EXPECT_TRUE(mainDesk.log.empty()) << "the output is not renewed";
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    EXPECT_EQ(studio.run.SoundFinished, flagSet);
    EXPECT_EQ(desk.captions[RecordCaption::Label1], "Stop Recording");
    EXPECT_EQ(boxes(), Lines{"critical;Critical Error;Encoding library not found...can't encode."});
}

TEST_F(Recording, StartsThroughItsImageIfTheFlagIsSet) {
    studio.run.RecordingFlag = flagSet;
    capture.CmdStart_Click();
    EXPECT_EQ(sent()[4], "0.000 open new type waveaudio alias capture");
}

TEST_F(Recording, LosesItsCaptionWithTheTimer) {
    desk.captions[RecordCaption::Label8] = "Stopped";
    desk.timer10 = true;
    capture.Timer10_Timer();
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "");
    EXPECT_FALSE(desk.timer10);
    desk.captions[RecordCaption::Label8] = "Encoding";
    capture.Timer10_Timer();
    EXPECT_EQ(desk.captions[RecordCaption::Label8], "Encoding");
}

TEST_F(Recording, StartsTheMixer) {
    studio.run.MixerPath = "SndVol32.exe";
    capture.Command1_Click();
    EXPECT_EQ(host.desktop.programs, Lines{"mixer SndVol32.exe"});
    EXPECT_TRUE(boxes().empty());
}

TEST_F(Recording, CopiesItsBoxToTheMainWindow) {
    desk.checks[RecordCheck::Check2] = true;
    capture.Check2_Click();
    EXPECT_TRUE(mainDesk.check1);
}

TEST_F(Recording, ReturnsWhenTheProgramEnds) {
    mainDesk.onPlay = [this] { host.time.end(); };
    desk.checks[RecordCheck::Check2] = true;
    capture.Cmdrecord_Click();
    capture.Recordcontrol();
    EXPECT_TRUE(boxes().empty());
}

} // namespace
} // namespace velorin

// An MP3 file from its opening to its end.
#include "RecordingStage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

class Mp3 : public testing::Test, protected RecordingStage {
protected:
    /// A device of 250 frames in 10 seconds, 25 frames a second. The same string asks for frames
    /// and for milliseconds, so one answer serves for both lengths.
    void answerAt(const char* position) { host.mci.reply("status audiomp3 position", 0, position); }
};

TEST_F(Mp3, OpensReadsAndPlaysAFile) {
    desk.texts[RecordText::Text6] = write("a.mp3", "\xFF\xFB\x90\x64");
    host.mci.reply("status audiomp3 length", 0, "2000"); // frames and milliseconds: 1000 a second
    answerAt("500");
    in(0.3, [this] { answerAt("2000"); });
    in(0.4, [this] { host.mci.reply("Close audiomp3", 0, ""); });
    in(0.6, [this] { host.mci.reply("status audiomp3 position", 263, ""); });
    player.Cmd2_Click(1);
    const Lines all = sent();
    const Lines begin{
        "0.000 Stop audiomp3",
        "0.000 Close audiomp3",
        "0.000 open " + inFolder("a.mp3") +
            " type MPEGVideo Alias audiomp3 parent 77 Style 1073741824",
        // frames per second
        "0.000 set audiomp3 time format ms",
        "0.000 status audiomp3 length",
        "0.000 set audiomp3 time format frames",
        "0.000 set audiomp3 time format frames",
        "0.000 status audiomp3 length",
        // frames, milliseconds
        "0.000 set audiomp3 time format frames",
        "0.000 status audiomp3 length",
        "0.000 set audiomp3 time format ms",
        "0.000 status audiomp3 length",
        "0.000 set audiomp3 time format frames",
        // play
        "0.000 set audiomp3 time format frames",
        "0.000 status audiomp3 length",
        "0.000 play audiomp3 from 0 to 2000",
        "0.000 status audiomp3 position",
        "0.250 status audiomp3 position",
        "0.250 status audiomp3 position",
        "0.250 status audiomp3 position",
        "0.500 status audiomp3 position",
        "0.500 status audiomp3 position",
        "0.500 Stop audiomp3",
        "0.500 Close audiomp3",
    };
    ASSERT_GE(all.size(), begin.size());
    EXPECT_EQ(Lines(all.begin(), all.begin() + static_cast<long>(begin.size())), begin);
    EXPECT_FALSE(desk.picture5);
    EXPECT_TRUE(std::find(desk.statuses.begin(), desk.statuses.end(), "25 %") !=
                desk.statuses.end());
}

TEST_F(Mp3, EndsAtOnceWhereNothingOpens) {
    desk.texts[RecordText::Text6] = "a.mp3";
    host.mci.reply("", 263, ""); // every command fails
    player.Cmd2_Click(1);
    EXPECT_EQ(sent().back(), "0.000 status audiomp3 position");
    EXPECT_TRUE(desk.picture5);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(Mp3, ShowsMinutesAndSeconds) {
    desk.texts[RecordText::Text6] = "a.mp3";
    host.mci.reply("status audiomp3 length", 0, "200000"); // 200 seconds, 1000 frames each
    mp3.OpenMP3("a.mp3");
    const auto timeAt = [this](const char* position) {
        answerAt(position);
        mp3.UpdateMp3Position();
        return desk.captions[RecordCaption::lblTime];
    };
    EXPECT_EQ(timeAt("0"), "00:00");
    EXPECT_EQ(timeAt("7400"), "00:07");
    EXPECT_EQ(timeAt("59400"), "00:59");
    EXPECT_EQ(timeAt("59600"), "01:00");
    EXPECT_EQ(timeAt("125000"), "02:05");
    EXPECT_EQ(desk.captions[RecordCaption::Status], "62 %"); // 62.5 goes to the even number
    EXPECT_EQ(desk.barWidth, 187.5);
}

TEST_F(Mp3, KeepsWhatItShowsWhereALengthIsZero) {
    mp3.OpenMP3("a.mp3");
    desk.captions[RecordCaption::Status] = "5 %";
    host.mci.reply("status audiomp3 length", 263, "");
    mp3.UpdateMp3Position();
    EXPECT_EQ(desk.captions[RecordCaption::Status], "5 %");
    EXPECT_EQ(desk.captions[RecordCaption::lblTime], "00:00");
}

TEST_F(Mp3, ClearsTheCaptionAtANegativeTime) {
    host.mci.reply("status audiomp3 length", 0, "2000");
    mp3.OpenMP3("a.mp3");
    answerAt("-2000");
    mp3.UpdateMp3Position();
    EXPECT_EQ(desk.captions[RecordCaption::Status], "");
}

TEST_F(Mp3, ResumesWithoutALoopOfItsOwn) {
    desk.texts[RecordText::Text6] = "a.mp3";
    studio.run.PlayerPaused = flagSet;
    mp3.CmdPlayMP3_Click();
    EXPECT_EQ(sent(), Lines{"0.000 Resume audiomp3"});
    EXPECT_EQ(studio.run.PlayerPaused, flagClear);
    EXPECT_TRUE(desk.picture5);
}

TEST_F(Mp3, ThatNeverPlayedStartsOnlyWithTheSecondPlayAfterAPause) {
    desk.texts[RecordText::Text6] = "a.mp3";
    host.mci.reply("", 263, "");
    player.Cmd2_Click(2);
    EXPECT_EQ(sent(), Lines{"0.000 Pause audiomp3"});
    player.Cmd2_Click(1);
    EXPECT_EQ(sent(), Lines{"0.000 Resume audiomp3"});
    player.Cmd2_Click(1);
    EXPECT_EQ(sent().front(), "0.000 Stop audiomp3");
}

TEST_F(Mp3, StoppedEmptiesItsLabels) {
    for (const RecordCaption label :
         {RecordCaption::lblKhz, RecordCaption::lblbitrate, RecordCaption::lblmode})
        desk.captions[label] = "x";
    desk.texts[RecordText::Text6] = "a.mp3";
    desk.picture5 = true;
    player.Cmd2_Click(3);
    EXPECT_EQ(sent(), (Lines{"0.000 Stop audiomp3", "0.000 Close audiomp3"}));
    EXPECT_EQ(desk.captions[RecordCaption::lblKhz], "");
    EXPECT_EQ(desk.captions[RecordCaption::lblbitrate], "");
    EXPECT_EQ(desk.captions[RecordCaption::lblmode], "");
    EXPECT_EQ(desk.captions[RecordCaption::lblTime], ":");
    EXPECT_FALSE(desk.picture5);
}

} // namespace
} // namespace velorin

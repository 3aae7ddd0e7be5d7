// The command strings of the MP3 device, the header's labels and the INI entry.
#include "RecordingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

class Multimedia : public testing::Test, protected RecordingStage {};

TEST_F(Multimedia, OpensAShortPathAsTheChildOfAWindow) {
    EXPECT_EQ(media.mmOpen(5, "audiomp3", "a b.mp3", "MPEGVideo"), "Success");
    EXPECT_EQ(sent(), Lines{"0.000 open a%20b.mp3 type MPEGVideo Alias audiomp3 parent 5 Style "
                            "1073741824"});
}

TEST_F(Multimedia, AnswersWithTheTextOfAFailure) {
    host.mci.reply("open", 263, "");
    EXPECT_EQ(media.mmOpen(5, "audiomp3", "a.mp3", "MPEGVideo"), "error 263");
}

TEST_F(Multimedia, SendsTheVerbsWithCapitals) {
    media.mmClose("audiomp3");
    media.mmPause("audiomp3");
    media.mmStop("audiomp3");
    media.mmResume("audiomp3");
    EXPECT_EQ(sent(), (Lines{"0.000 Close audiomp3", "0.000 Pause audiomp3", "0.000 Stop audiomp3",
                             "0.000 Resume audiomp3"}));
}

TEST_F(Multimedia, PlaysTheWholeFileInFrames) {
    host.mci.reply("status audiomp3 length", 0, "250");
    EXPECT_EQ(media.mmPlay("audiomp3", "", "0"), "Success");
    EXPECT_EQ(sent(), (Lines{"0.000 set audiomp3 time format frames",
                             "0.000 status audiomp3 length", "0.000 play audiomp3 from 0 to 250"}));
}

TEST_F(Multimedia, PlaysAPartWithoutAskingForTheLength) {
    media.mmPlay("audiomp3", "10", "20");
    EXPECT_EQ(sent(), Lines{"0.000 play audiomp3 from 10 to 20"});
}

TEST_F(Multimedia, ReportsAFailedLengthAsMinusOne) {
    host.mci.reply("status audiomp3 length", 263, "99");
    EXPECT_EQ(media.mmGetLength("audiomp3"), -1);
    EXPECT_EQ(media.mmGetLengthMs("audiomp3"), -1);
    EXPECT_EQ(media.mmGetFramesPerSecond("audiomp3"), -1);
    host.mci.reply("status audiomp3 position", 263, "99");
    EXPECT_EQ(media.mmGetPosition("audiomp3"), -1);
}

TEST_F(Multimedia, ReadsAnUnansweredQuestionAsZero) {
    EXPECT_EQ(media.mmGetLength("audiomp3"), 0);
    EXPECT_EQ(media.mmGetPosition("audiomp3"), 0);
}

TEST_F(Multimedia, RoundsANumberToTheNearest) {
    host.mci.reply("status audiomp3 position", 0, " 12.6 of 20");
    EXPECT_EQ(media.mmGetPosition("audiomp3"), 13);
}

TEST_F(Multimedia, PutsTheDeviceBackToFramesAfterMilliseconds) {
    media.mmGetLengthMs("audiomp3");
    EXPECT_EQ(sent(), (Lines{"0.000 set audiomp3 time format ms", "0.000 status audiomp3 length",
                             "0.000 set audiomp3 time format frames"}));
}

TEST_F(Multimedia, ComputesFramesPerSecondFromOneLengthInTwoFormats) {
    host.mci.reply("status audiomp3 length", 0, "2000");
    EXPECT_EQ(media.mmGetFramesPerSecond("audiomp3"), 1000); // 2000 frames in 2 seconds
}

TEST_F(Multimedia, HasNoFramesPerSecondOfALengthOfZero) {
    EXPECT_EQ(media.mmGetFramesPerSecond("audiomp3"), std::nullopt);
}

TEST_F(Multimedia, IsAtItsEndFromTheLastFrameOn) {
    host.mci.reply("status audiomp3 position", 0, "100");
    std::int32_t length = 100;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagSet);
    length = 101;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagClear);
    length = 99;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagSet);
}

TEST_F(Multimedia, FillsInALengthOfZero) {
    host.mci.reply("status audiomp3 length", 0, "70");
    std::int32_t length = 0;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagClear);
    EXPECT_EQ(length, 70);
}

TEST_F(Multimedia, IsNotAtItsEndWithAFailedQuestion) {
    host.mci.reply("status audiomp3 position", 263, "");
    std::int32_t length = 100;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagClear);
    length = -1;
    EXPECT_EQ(media.mmIsAtEnd("audiomp3", length), flagClear);
}

TEST_F(Multimedia, ShowsTheHeaderOfAFileInThreeLabels) {
    media.mmReadMp3Header(write("a.mp3", "\xFF\xFB\x90\xC0"));
    EXPECT_EQ(desk.captions[RecordCaption::lblKhz], "44");
    EXPECT_EQ(desk.captions[RecordCaption::lblbitrate], "128");
    EXPECT_EQ(desk.captions[RecordCaption::lblmode], "mono");
}

TEST_F(Multimedia, LeavesTheLabelForTheReservedRate) {
    desk.captions[RecordCaption::lblKhz] = "32";
    media.mmReadMp3Header(write("a.mp3", "\xFF\xFB\x9C\x64"));
    EXPECT_EQ(desk.captions[RecordCaption::lblKhz], "32");
}

TEST_F(Multimedia, ReadsZerosFromAMissingFile) {
    media.mmReadMp3Header(inFolder("missing.mp3"));
    EXPECT_EQ(desk.captions[RecordCaption::lblKhz], "44");
    EXPECT_EQ(desk.captions[RecordCaption::lblbitrate], "0");
    EXPECT_EQ(desk.captions[RecordCaption::lblmode], "stereo");
}

TEST_F(Multimedia, ReadsNoneForAnEntryThatIsNotThere) {
    EXPECT_EQ(media.ReadMCIEntry("MPEGVideo"), "None");
    media.WriteMCIEntry("MPEGVideo", "mciqtz.drv");
    EXPECT_EQ(media.ReadMCIEntry("MPEGVideo"), "mciqtz.drv");
}

} // namespace
} // namespace velorin

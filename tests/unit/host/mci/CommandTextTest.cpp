// Parsing command strings.
#include "host/mci/CommandText.h"
#include "host/mci/TimeFormat.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

TEST(ACommandString, IsAVerbADeviceAndTheRest) {
    const CommandText text = readCommand("  PLAY  Sound from 0 ");
    EXPECT_EQ(text.verb, "play");
    EXPECT_EQ(text.device, "sound");
    EXPECT_EQ(text.rest, "from 0");
    EXPECT_EQ(readCommand("").verb, "");
    EXPECT_EQ(readCommand("save capture C:/My Songs/A B.wav").rest, "C:/My Songs/A B.wav");
}

TEST(AnOpenCommand, MayHaveANameWithBlanks) {
    const OpenText open = readOpen("waveaudio!/a b/My Song alias of mine.wav alias SOUND");
    EXPECT_EQ(open.type, "waveaudio");
    EXPECT_EQ(open.file, "/a b/My Song alias of mine.wav");
    EXPECT_EQ(open.alias, "sound");
    EXPECT_FALSE(open.isNew);
}

TEST(AnOpenCommand, IsParsedFromItsEnd) {
    const OpenText open =
        readOpen("/a%20type!x.mp3 type MPEGVideo Alias audiomp3 parent 7 Style 1073741824");
    EXPECT_EQ(open.file, "/a%20type!x.mp3");
    EXPECT_EQ(open.type, "mpegvideo");
    EXPECT_EQ(open.alias, "audiomp3");
    const OpenText blanks = readOpen("my type song.mp3 type mpegvideo alias a");
    EXPECT_EQ(blanks.file, "my type song.mp3");
    EXPECT_EQ(blanks.type, "mpegvideo");
}

TEST(AnOpenCommand, MayAskForANewRecording) {
    const OpenText open = readOpen("New type waveaudio alias capture");
    EXPECT_TRUE(open.isNew);
    EXPECT_EQ(open.type, "waveaudio");
    EXPECT_EQ(open.alias, "capture");
}

TEST(AnOpenCommand, MayHaveANameInQuotes) {
    EXPECT_EQ(readOpen("\"a b.wav\" type waveaudio alias x").file, "a b.wav");
    EXPECT_EQ(readOpen("sequencer!\"a b.mid\" alias midi").file, "a b.mid");
    EXPECT_EQ(readOpen("\"").file, "\"");
    EXPECT_EQ(readOpen("").file, "");
}

TEST(ANumberInACommand, IsDecimalWithoutASign) {
    EXPECT_EQ(numberOf("1073741824"), 1073741824);
    EXPECT_EQ(numberOf("0"), 0);
    EXPECT_EQ(numberOf("-1"), std::nullopt);
    EXPECT_EQ(numberOf(""), std::nullopt);
    EXPECT_EQ(numberOf("12a"), std::nullopt);
    EXPECT_EQ(numberOf("9999999999999999999999"), std::nullopt);
}

TEST(ATimeFormat, CountsTheSameEndInBothDirections) {
    EXPECT_EQ(toFormat(44100, TimeFormat::milliseconds, 44100), 1000);
    EXPECT_EQ(fromFormat(1000, TimeFormat::milliseconds, 44100), 44100);
    EXPECT_EQ(toFormat(44100, TimeFormat::frames, 44100), 44100);
    EXPECT_EQ(toFormat(22, TimeFormat::milliseconds, 44100), 0);
    EXPECT_EQ(toFormat(23, TimeFormat::milliseconds, 44100), 1);
}

} // namespace
} // namespace velorin::host

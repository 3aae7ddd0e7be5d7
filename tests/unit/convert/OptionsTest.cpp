// What the converter makes of its command line.
#include "convert/Options.h"

#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

TEST(TheCommandLine, WithOneOutputTakesTheKindFromItsEnding) {
    const Options options = readOptions({"in.sng", "-o", "dir/Out.WAV"});
    ASSERT_EQ(options.problem, "");
    ASSERT_EQ(options.tasks.size(), 1U);
    EXPECT_EQ(options.tasks[0].score, "in.sng");
    EXPECT_EQ(options.tasks[0].target, "dir/Out.WAV");
    EXPECT_EQ(options.tasks[0].kind, Kind::wav);
}

TEST(TheCommandLine, WithAKindWritesEachScoreBesideItself) {
    const Options options = readOptions({"--to", "mid", "a/one.sng", "two three.SNG"});
    ASSERT_EQ(options.problem, "");
    ASSERT_EQ(options.tasks.size(), 2U);
    EXPECT_EQ(options.tasks[0].target, "a/one.mid");
    EXPECT_EQ(options.tasks[1].target, "two three.mid");
    EXPECT_EQ(options.tasks[1].kind, Kind::mid);
}

TEST(TheCommandLine, WithAFolderWritesEachScoreThere) {
    const Options options = readOptions({"a/one.sng", "--to=png", "--out=b"});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.tasks[0].target, "b/one.png");
    EXPECT_TRUE(options.makesFolder);
}

TEST(TheCommandLine, TakesRateAndSoundFont) {
    const Options options =
        readOptions({"a.sng", "-o", "a.wav", "--rate", "22050", "--soundfont", "x.sf2"});
    EXPECT_EQ(options.rateHz, 22050);
    EXPECT_EQ(options.soundFont, "x.sf2");
}

TEST(TheCommandLine, AllowsAnHourOfSoundUnlessItSaysOtherwise) {
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.wav"}).mostMinutes, 60);
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.wav", "--most-minutes", "90"}).mostMinutes, 90);
}

TEST(TheCommandLine, TakesAnythingBehindTwoDashesForAScore) {
    const Options options = readOptions({"--to", "mid", "--", "--to.sng"});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.tasks[0].score, "--to.sng");
}

TEST(TheCommandLine, ForHelpOrVersionNeedsNothingElse) {
    EXPECT_TRUE(readOptions({"--help"}).help);
    EXPECT_EQ(readOptions({"--help"}).problem, "");
    EXPECT_TRUE(readOptions({"--version", "--nonsense"}).version);
}

TEST(TheCommandLine, ThatCannotBeFollowedSaysWhy) {
    const std::vector<std::vector<std::string>> lines{
        {},
        {"a.sng"},
        {"-o", "a.wav"},
        {"a.sng", "-o"},
        {"a.sng", "-o", "a.ogg"},
        {"a.sng", "-o", "wav"},
        {"a.sng", "b.sng", "-o", "a.wav"},
        {"a.sng", "-o", "a.wav", "--to", "wav"},
        {"a.sng", "--to", "ogg"},
        {"a.sng", "--to", "mp3", "--bitrate", "193"},
        {"a.sng", "--to", "mp3", "--quality", "10"},
        {"a.sng", "--to", "mp3", "--jobs", "0"},
        {"a.sng", "--to", "wav", "--most-minutes", "0"},
        {"a.sng", "--to", "wav", "--most-minutes", "1441"},
        {"a.sng", "--to", "wav", "--rate", "7999"},
        {"a.sng", "--to", "wav", "--rate", "44100x"},
        {"a.sng", "--to", "wav", "--loud"},
    };
    for (const auto& line : lines) {
        EXPECT_NE(readOptions(line).problem, "") << testing::PrintToString(line);
    }
}

} // namespace
} // namespace velorin::convert

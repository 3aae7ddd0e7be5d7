// The command line of the converter.
#include "convert/Options.h"

#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace velorin::convert {
namespace {

TEST(TheCommandLine, WithOneOutputTakesTheKindFromItsEnding) {
    const Options options = readOptions({"in.sng", "-o", "dir/Out.WAV"});
    ASSERT_EQ(options.problem, "");
    ASSERT_EQ(options.tasks.size(), 1U);
    EXPECT_EQ(options.tasks[0].source, "in.sng");
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

TEST(TheCommandLine, TakesAPageByItsEnding) {
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.HTML"}).tasks.at(0).kind, Kind::html);
    EXPECT_EQ(readOptions({"--to", "html", "a.sng"}).tasks.at(0).target, "a.html");
    EXPECT_NE(readOptions({"a.sng", "-o", "a.html", "--rate", "8000", "--bitrate", "320"}).problem,
              "");
}

TEST(TheCommandLine, TakesRateAndSoundFont) {
    const Options options =
        readOptions({"a.sng", "-o", "a.wav", "--rate", "22050", "--soundfont", "x.sf2"});
    EXPECT_EQ(options.rateHz, 22050);
    EXPECT_EQ(options.soundFont, "x.sf2");
}

TEST(TheCommandLine, TakesPlainForMidiFilesOnly) {
    EXPECT_FALSE(readOptions({"a.sng", "-o", "a.mid"}).plainMidi);
    EXPECT_TRUE(readOptions({"a.sng", "--plain", "-o", "a.mid"}).plainMidi);
    EXPECT_EQ(readOptions({"--to", "mid", "--plain", "a.sng", "b.sng"}).problem, "");
    const std::string problem = "--plain is for MIDI files, made with --to mid or -o FILE.mid";
    EXPECT_EQ(readOptions({"a.sng", "--plain", "-o", "a.wav"}).problem, problem);
    EXPECT_EQ(readOptions({"a.sng", "--plain", "--to", "mp3"}).problem, problem);
}

TEST(TheCommandLine, TakesAThumbnailUnderAnyName) {
    const Options options = readOptions({"--thumbnail", "128", "a.sng", "-o", "/tmp/x.7Zk2"});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.thumbnailPx, 128);
    EXPECT_EQ(options.tasks.at(0).kind, Kind::png);
    EXPECT_EQ(options.tasks.at(0).target, "/tmp/x.7Zk2");
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.png"}).thumbnailPx, 0);
    EXPECT_EQ(readOptions({"--thumbnail", "64", "--to", "png", "a.sng"}).problem, "");
    EXPECT_NE(readOptions({"--thumbnail", "64", "--to", "mid", "a.sng"}).problem, "");
    for (const char* const size : {"0", "1025", "-1", "x", ""})
        EXPECT_NE(readOptions({"--thumbnail", size, "a.sng", "-o", "a"}).problem, "") << size;
}

TEST(TheCommandLine, AllowsAnHourOfSoundByDefault) {
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.wav"}).maxMinutes, 60);
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.wav", "--most-minutes", "90"}).maxMinutes, 90);
}

TEST(TheCommandLine, TakesEverythingAfterTwoDashesForAScore) {
    const Options options = readOptions({"--to", "mid", "--", "--to.sng"});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.tasks[0].source, "--to.sng");
}

TEST(TheCommandLine, ForHelpOrVersionNeedsNothingElse) {
    EXPECT_TRUE(readOptions({"--help"}).help);
    EXPECT_EQ(readOptions({"--help"}).problem, "");
    EXPECT_TRUE(readOptions({"--version", "--nonsense"}).version);
}

TEST(TheCommandLine, ListsTheHistory) {
    const Options options = readOptions({"--history"});
    EXPECT_EQ(options.problem, "");
    EXPECT_TRUE(options.usesHistory);
    EXPECT_FALSE(options.historyEntry);
    EXPECT_TRUE(options.tasks.empty());
}

TEST(TheCommandLine, TakesAnEntryOfTheHistoryAsItsInput) {
    const std::vector<std::vector<std::string>> lines{
        {"--history", "12", "-o", "out.sng"},
        {"-o", "out.sng", "--history=12"},
    };
    for (const auto& line : lines) {
        const Options options = readOptions(line);
        EXPECT_EQ(options.problem, "");
        EXPECT_EQ(options.historyEntry, 12);
        ASSERT_EQ(options.tasks.size(), 1U);
        EXPECT_EQ(options.tasks[0].source, "entry 12 of the history");
        EXPECT_EQ(options.tasks[0].kind, Kind::sng);
    }
}

TEST(TheCommandLine, JoinsAllScoresIntoOneOutput) {
    const Options options = readOptions({"--join", "a.sng", "b.sng", "c.sng", "-o", "long.mp3"});
    ASSERT_EQ(options.problem, "");
    ASSERT_EQ(options.tasks.size(), 1U);
    EXPECT_EQ(options.tasks[0].source, "a.sng");
    EXPECT_EQ(options.tasks[0].followers, (std::vector<std::string>{"b.sng", "c.sng"}));
    EXPECT_EQ(options.tasks[0].kind, Kind::mp3);
}

TEST(TheCommandLine, TakesStemsWithoutEffects) {
    const Options options = readOptions({"--stems", "--dry", "--to", "wav", "a.sng", "b.sng"});
    ASSERT_EQ(options.problem, "");
    EXPECT_TRUE(options.makesStems);
    EXPECT_TRUE(options.isDry);
    EXPECT_EQ(options.tasks.size(), 2U);
}

TEST(TheCommandLine, TakesADashForAScore) {
    const Options options = readOptions({"-", "--to", "mid"});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.tasks.at(0).source, "-");
}

TEST(TheCommandLine, TakesAFolderWithItsOutputBesideTheFiles) {
    const scripted::TemporaryFolder folder;
    const std::string name = folder.path().string();
    Options options = readOptions({"--to", "mp3", name});
    ASSERT_EQ(options.problem, "");
    EXPECT_EQ(options.tasks.at(0).source, name);
    EXPECT_EQ(options.tasks.at(0).target, name);
    EXPECT_TRUE(options.tasks.at(0).isResumable) << "newer outputs are kept";
    options = readOptions({"--to", "mp3", "--out", "there", name});
    EXPECT_EQ(options.tasks.at(0).target, "there");
    EXPECT_EQ(readOptions({name, "-o", "a.mp3"}).problem,
              "-o takes one score; use --to for a folder");
}

// No stem has the name of the output itself, so nothing says whether it is newer.
TEST(TheCommandLine, MakesTheStemsOfAFolderAgainEachTime) {
    const scripted::TemporaryFolder folder;
    const Options options = readOptions({"--stems", "--to", "wav", folder.path().string()});
    ASSERT_EQ(options.problem, "");
    EXPECT_FALSE(options.tasks.at(0).isResumable);
}

// A WAV file has its own rate, and a folder may have some.
TEST(TheCommandLine, ChecksABitrateAgainstTheRateOnlyForScores) {
    const scripted::TemporaryFolder folder;
    for (const std::string& source : {std::string("a.wav"), folder.path().string()})
        EXPECT_EQ(
            readOptions({"--to", "mp3", "--rate", "8000", "--bitrate", "320", source}).problem, "");
    EXPECT_NE(readOptions({"--to", "mp3", "--rate", "8000", "--bitrate", "320", "a.sng"}).problem,
              "");
}

TEST(TheKindOfASource, IsThatOfItsEnding) {
    EXPECT_EQ(sourceKindOf("a.mid"), Kind::mid);
    EXPECT_EQ(sourceKindOf("a.MIDI"), Kind::mid);
    EXPECT_EQ(sourceKindOf("a.Wav"), Kind::wav);
    EXPECT_EQ(sourceKindOf("a.sng"), Kind::sng);
    EXPECT_EQ(sourceKindOf("a"), Kind::sng);
}

TEST(TheHelpOfTheCommandLine, NamesEveryOptionAndNoOther) {
    const std::set<std::string> known{
        "--to",           "--out",       "--plain",   "--rate", "--bitrate", "--quality",
        "--dry",          "--stems",     "--join",    "--jobs", "--report",  "--soundfont",
        "--most-minutes", "--thumbnail", "--history", "--help", "--version",
    };
    std::set<std::string> named;
    std::istringstream words(helpText());
    for (std::string word; words >> word;) {
        if (word.starts_with("--"))
            named.insert(word.substr(0, word.find_first_not_of("-abcdefghijklmnopqrstuvwxyz")));
    }
    EXPECT_EQ(named, known);
    for (const std::string& option : known)
        EXPECT_FALSE(readOptions({option, "1"}).problem.starts_with("unknown option")) << option;
    EXPECT_TRUE(readOptions({"-h"}).help);
}

TEST(TheCommandLine, ThatIsWrongSaysWhy) {
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
        {"--join", "a.sng", "b.sng", "--to", "wav"},
        {"--join", "a.sng", "b.sng", "-o", "a.mid"},
        {"--join", "--stems", "a.sng", "b.sng", "-o", "a.wav"},
        {"--stems", "a.sng", "-o", "a.mp3"},
        {"--stems=2", "a.sng", "-o", "a.wav"},
        {"--dry", "a.sng", "-o", "a.mid"},
        {"--history", "a.sng"},
        {"--history", "0", "-o", "a.sng"},
        {"--history", "2x", "-o", "a.sng"},
        {"--history=two", "-o", "a.sng"},
        {"--history", "2"},
        {"--history", "-o", "a.sng"},
        {"--history", "2", "--to", "sng"},
        {"--history", "--to", "sng"},
        {"a.sng", "-o", "a.wav", "--out", "there"},
    };
    for (const auto& line : lines) {
        EXPECT_NE(readOptions(line).problem, "") << testing::PrintToString(line);
    }
}

} // namespace
} // namespace velorin::convert

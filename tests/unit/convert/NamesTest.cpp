// Sources and outputs with every name that the system allows.
#include "convert/Batch.h"
#include "convert/Conversion.h"
#include "convert/Folders.h"
#include "host/media/Lame.h"
#include "host/synth/SoundFonts.h"
#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Without the ending, which makes the first two 255 bytes long.
const std::string names[] = {std::string(251, 'n'),
                             std::string(250, 'n'),
                             "a\\b",
                             "\\",
                             "c:\\songs\\x",
                             "tab\tand\nline",
                             "\x01\x1B[31m",
                             "bytes\xFF\xFE",
                             "  ",
                             "dots..",
                             "-o",
                             "UPPER.case",
                             "\xF0\x9F\x8E\xB5"};

class ANamedFile : public testing::TestWithParam<std::string> {
protected:
    ANamedFile() {
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options_.soundFont = fonts.front().path;
        options_.rateHz = 8000;
        options_.bitrate = 8;
    }

    [[nodiscard]] fs::path at(const std::string& ending) const {
        return folder_.path() / (GetParam() + ending);
    }

    // A woodblock in column 0, at tempo 300.
    void writeScore(const fs::path& file) const {
        std::string score = "60\r\n115\r\n";
        for (int row = 1; row < 13; ++row)
            score += "-1\r\n0\r\n";
        std::ofstream(file, std::ios::binary) << score + " 300 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    }

    void expectMade(const std::string& from, const std::string& to, Kind kind) {
        EXPECT_EQ(convert({at(from).string(), at(to), kind}, options_, {}).reason(), "");
        EXPECT_GT(fs::file_size(at(to)), 0U) << to;
    }

    scripted::TemporaryFolder folder_;
    Options options_;
};

TEST_P(ANamedFile, IsReadAndWrittenByEveryConversion) {
    writeScore(at(".sng"));
    expectMade(".sng", ".mid", Kind::mid);
    expectMade(".sng", ".png", Kind::png);
    expectMade(".sng", ".wav", Kind::wav);
    if (host::Lame::load(host::Lame::fileName)) {
        if (GetParam().size() <= 250)
            expectMade(".sng", ".html", Kind::html);
        expectMade(".sng", ".mp3", Kind::mp3);
        expectMade(".wav", ".mp3", Kind::mp3);
        expectMade(".mid", ".mp3", Kind::mp3);
    }
    options_.mayReplaceScore = true;
    expectMade(".sng", ".sng", Kind::sng);
    expectMade(".mid", ".sng", Kind::sng);
}

TEST_P(ANamedFile, MayBeAFolderAndInOne) {
    fs::create_directory(at(""));
    writeScore(at("") / (GetParam() + ".sng"));
    std::vector<SkippedFile> skipped;
    options_.tasks = expandFolders({{at("").string(), at(".out"), Kind::mid, true}}, skipped);
    const auto results = convertAll(options_, 1, [](const ConversionResult&) {});
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].reason, "");
    EXPECT_TRUE(fs::exists(at(".out") / (GetParam() + ".mid")));
}

TEST(AFolderOfScores, GetsFilesWithTheEndingOfEachKind) {
    const scripted::TemporaryFolder folder;
    std::ofstream(folder.path() / "a.sng") << "60\r\n";
    const std::pair<Kind, std::string> endings[] = {{Kind::mid, "a.mid"}, {Kind::wav, "a.wav"},
                                                    {Kind::mp3, "a.mp3"}, {Kind::png, "a.png"},
                                                    {Kind::sng, "a.sng"}, {Kind::html, "a.html"}};
    for (const auto& [kind, name] : endings) {
        std::vector<SkippedFile> skipped;
        const auto tasks = expandFolders({{folder.path().string(), "out", kind, true}}, skipped);
        ASSERT_EQ(tasks.size(), 1U);
        EXPECT_EQ(tasks[0].target, fs::path("out") / name);
    }
}

TEST(AReport, CountsEachOutcome) {
    std::vector<ConversionResult> results(6);
    results[0].outcome = Outcome::converted;
    results[1].outcome = results[2].outcome = Outcome::skipped;
    EXPECT_TRUE(reportOf(results).starts_with(
        "{\n  \"converted\": 1,\n  \"skipped\": 2,\n  \"failed\": 3,\n  \"files\": ["));
}

TEST(AFolderOfScores, IsConvertedAgainWhereTheOutputIsOlder) {
    const scripted::TemporaryFolder folder;
    std::ofstream(folder.path() / "a.sng") << "60\r\n";
    Options options;
    std::vector<SkippedFile> skipped;
    options.tasks =
        expandFolders({{folder.path().string(), folder.path() / "out", Kind::mid, true}}, skipped);
    ASSERT_EQ(options.tasks.size(), 1U);
    const auto outcome = [&options] {
        return convertAll(options, 1, [](const ConversionResult&) {}).at(0).outcome;
    };
    EXPECT_EQ(outcome(), Outcome::converted);
    EXPECT_EQ(outcome(), Outcome::skipped);
    fs::last_write_time(folder.path() / "a.sng", fs::file_time_type::clock::now() + 1h);
    EXPECT_EQ(outcome(), Outcome::converted);
}

INSTANTIATE_TEST_SUITE_P(Odd, ANamedFile, testing::ValuesIn(names));

} // namespace
} // namespace velorin::convert

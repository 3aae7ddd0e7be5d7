// Makes MP3 files from scores, MIDI and WAV files, and converts folders.
#include "../recorded/OtherPrograms.h"
#include "convert/Batch.h"
#include "convert/Conversion.h"
#include "convert/Folders.h"
#include "host/media/Lame.h"
#include "host/media/SoundReader.h"
#include "host/synth/SoundFonts.h"
#include "support/FullDisk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <vector>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

class ASoundConversion : public testing::Test {
protected:
    ASoundConversion() {
        fs::remove_all(folder_);
        fs::create_directories(folder_ / "in" / "deep");
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options_.soundFont = fonts.front().path;
        std::string score = "60,-1,-1,-1,60\r\n115,0,0,0,115\r\n";
        for (int row = 1; row < 13; ++row)
            score += "-1\r\n0\r\n";
        write("in/a.sng", score + " 100 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }
    void SetUp() override {
        if (!host::Lame::load(host::Lame::fileName))
            GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    }
    ~ASoundConversion() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }

    // Eight notes of two columns, each with a different pitch.
    void writeMelody(const std::string& name) const {
        std::string notes;
        std::string instruments;
        for (const int pitch : {60, 62, 64, 65, 67, 69, 71, 72}) {
            notes += std::to_string(pitch) + "," + std::to_string(1000 + pitch) + ",-1,";
            instruments += "73,73,73,";
        }
        std::string score = notes + "-1\r\n" + instruments + "0\r\n";
        for (int row = 1; row < 13; ++row)
            score += "-1\r\n0\r\n";
        write(name, score + " 60 \r\n73,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }

    /// Left and right in turn.
    [[nodiscard]] std::vector<float> samples(const std::string& name) const {
        const auto reader = host::openWav(folder_ / name);
        EXPECT_TRUE(reader) << name;
        if (!reader)
            return {};
        std::vector<float> stereo(2 * static_cast<std::size_t>(reader->frames()));
        EXPECT_EQ(reader->read(stereo.data(), static_cast<int>(reader->frames())),
                  static_cast<int>(reader->frames()));
        return stereo;
    }

    /// The correlation of two sounds in a piece; the power of a sound if both are the same.
    static double power(const std::vector<float>& a, const std::vector<float>& b, std::size_t at,
                        std::size_t count) {
        double sum = 0.0;
        for (std::size_t i = at; i < at + count; ++i)
            sum += static_cast<double>(a[i]) * b[i];
        return sum;
    }

    std::string make(const std::string& from, const std::string& to, Kind kind) {
        return convert({(folder_ / from).string(), folder_ / to, kind}, options_, {}).reason();
    }

    // The length of an MP3 file in seconds.
    [[nodiscard]] double seconds(const std::string& name) const {
        const auto reader = host::openMp3(folder_ / name);
        return reader ? static_cast<double>(reader->frames()) / reader->rateHz() : -1.0;
    }

    [[nodiscard]] double wavSeconds(const std::string& name) const {
        const auto reader = host::openWav(folder_ / name);
        return reader ? static_cast<double>(reader->frames()) / reader->rateHz() : -1.0;
    }

    [[nodiscard]] std::vector<std::string> filesThere() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) {
            if (entry.is_regular_file())
                names.push_back(entry.path().filename().string());
        }
        return names;
    }

    std::vector<ConversionResult> convertFolder() {
        options_.tasks = {{(folder_ / "in").string(), folder_ / "out", Kind::mp3, true}};
        std::vector<SkippedFile> skipped;
        options_.tasks = expandFolders(options_.tasks, skipped);
        leftOut_ = skipped.size();
        return convertAll(options_, 2, [](const ConversionResult&) {});
    }

    fs::path folder_ =
        fs::path(testing::TempDir()) / ("velorin-convert-sound-" + std::to_string(getpid()));
    Options options_;
    std::size_t leftOut_ = 0;
};

TEST_F(ASoundConversion, MakesAnMp3AsLongAsTheWavOfAScore) {
    ASSERT_EQ(make("in/a.sng", "a.wav", Kind::wav), "");
    ASSERT_EQ(make("in/a.sng", "a.mp3", Kind::mp3), "");
    EXPECT_NEAR(seconds("a.mp3"), wavSeconds("a.wav"), 0.001);
    ASSERT_EQ(make("a.wav", "b.mp3", Kind::mp3), "");
    EXPECT_NEAR(seconds("b.mp3"), wavSeconds("a.wav"), 0.001);
}

// Another program decodes the MP3, which is compared with the WAV.
TEST_F(ASoundConversion, MakesAnMp3ThatSoundsLikeTheScore) {
    if (!velorin::test::isThere("lame"))
        GTEST_SKIP() << "no other decoder (lame)";
    writeMelody("melody.sng");
    ASSERT_EQ(make("melody.sng", "a.wav", Kind::wav), "");
    ASSERT_EQ(make("melody.sng", "a.mp3", Kind::mp3), "");
    velorin::test::told("lame --quiet --decode " +
                        velorin::test::quoted((folder_ / "a.mp3").string()) + " " +
                        velorin::test::quoted((folder_ / "b.wav").string()) + " 2>&1");
    const std::vector<float> score = samples("a.wav");
    const std::vector<float> mp3 = samples("b.wav");
    ASSERT_NEAR(static_cast<double>(mp3.size()), static_cast<double>(score.size()), 4.0);
    // Each half second is compared alone: one wrong pitch, or an onset that is a millisecond off,
    // would fail.
    constexpr std::size_t piece = 44100;
    ASSERT_GT(score.size(), 4 * piece);
    for (std::size_t at = 0; at + piece < score.size(); at += piece) {
        const double loudness = power(score, score, at, piece);
        if (loudness < 1e-3) // the last sound decays
            continue;
        const double decoded = power(mp3, mp3, at, piece);
        EXPECT_NEAR(std::sqrt(decoded / loudness), 1.0, 0.05) << at / piece;
        EXPECT_GT(power(score, mp3, at, piece) / std::sqrt(loudness * decoded), 0.98) << at / piece;
    }
}

TEST_F(ASoundConversion, PlaysAMidFile) {
    ASSERT_EQ(make("in/a.sng", "a.mid", Kind::mid), "");
    ASSERT_EQ(make("a.mid", "m.mp3", Kind::mp3), "");
    ASSERT_EQ(make("a.mid", "m.wav", Kind::wav), "");
    EXPECT_NEAR(seconds("m.mp3"), wavSeconds("m.wav"), 0.001);
    EXPECT_GT(wavSeconds("m.wav"), 0.5);
}

// The sound of a score of two notes lasts some seconds, which the option counts in minutes; so the
// WAV file gets a header for a rate of one frame in a hundred, and lasts minutes.
TEST_F(ASoundConversion, OfAWavFileChecksItsLengthBeforeTheStart) {
    options_.rateHz = 96000;
    ASSERT_EQ(make("in/a.sng", "a.wav", Kind::wav), "");
    {
        std::fstream wav(folder_ / "a.wav", std::ios::binary | std::ios::in | std::ios::out);
        wav.seekp(24);
        wav.write("\xE8\x03\0\0", 4); // 1000 frames a second
    }
    options_.maxMinutes = 1;
    EXPECT_THAT(make("a.wav", "a.mp3", Kind::mp3),
                testing::ContainsRegex("a.wav is too long: [0-9]+:[0-9]+ of sound, [0-9]+ MB; "
                                       "--most-minutes allows 1$"));
    EXPECT_FALSE(fs::exists(folder_ / "a.mp3"));
}

TEST_F(ASoundConversion, MakesNoScoreFromSound) {
    write("a.wav", "no sound");
    write("a.mid", "no music");
    EXPECT_NE(make("a.wav", "b.sng", Kind::sng), "");
    EXPECT_NE(make("a.mid", "b.sng", Kind::sng), "");
    EXPECT_EQ(make("a.wav", "b.mp3", Kind::mp3), (folder_ / "a.wav").string() + " is no WAV file");
    EXPECT_EQ(make("a.mid", "b.mp3", Kind::mp3),
              (folder_ / "a.mid").string() + " is not a MIDI file");
    EXPECT_FALSE(fs::exists(folder_ / "b.mp3"));
}

TEST_F(ASoundConversion, OnAFullDiskSaysWhyAndLeavesNoFiles) {
    write("a.mp3", "older");
    {
        const host::test::FullDisk disk(20'000);
        for (const Kind kind : {Kind::wav, Kind::mp3}) {
            const std::string target = kind == Kind::wav ? "a.wav" : "a.mp3";
            const std::string problem = make("in/a.sng", target, kind);
            EXPECT_THAT(problem,
                        testing::StartsWith((folder_ / target).string() + " cannot be written: "));
            EXPECT_THAT(problem, testing::HasSubstr("File too large"));
        }
    }
    EXPECT_FALSE(fs::exists(folder_ / "a.wav"));
    EXPECT_EQ(fs::file_size(folder_ / "a.mp3"), 5U) << "what was there before stays";
    EXPECT_THAT(filesThere(), testing::ElementsAre("a.mp3"));
}

TEST_F(ASoundConversion, OfAFolderContinuesAfterABadFileAndSkipsNewerOutput) {
    ASSERT_EQ(make("in/a.sng", "in/deep/b.mid", Kind::mid), "");
    ASSERT_EQ(make("in/a.sng", "in/a.mid", Kind::mid), "");
    write("in/bad.wav", "no sound");
    write("in/.hidden.sng", "1");
    write("in/notes.txt", "1");
    std::vector<ConversionResult> results = convertFolder();
    ASSERT_EQ(results.size(), 3U);
    EXPECT_EQ(leftOut_, 1U) << "a.mid has the name of a.sng";
    EXPECT_EQ(results[0].outcome, Outcome::converted);
    EXPECT_EQ(results[1].outcome, Outcome::failed);
    EXPECT_EQ(results[2].outcome, Outcome::converted);
    EXPECT_TRUE(fs::exists(folder_ / "out" / "a.mp3"));
    EXPECT_TRUE(fs::exists(folder_ / "out" / "deep" / "b.mp3"));
    results = convertFolder();
    EXPECT_EQ(results[0].outcome, Outcome::skipped);
    EXPECT_EQ(results[2].outcome, Outcome::skipped);
}

// The conversion is interrupted at its third piece of sound.
TEST_F(ASoundConversion, ThatIsInterruptedKeepsExistingFilesAndStartsNoOther) {
    write("a.mp3", "older");
    options_.tasks = {{(folder_ / "in/a.sng").string(), folder_ / "a.mp3", Kind::mp3},
                      {(folder_ / "in/a.sng").string(), folder_ / "b.mp3", Kind::mp3}};
    int asked = 0;
    std::vector<std::string> told;
    const std::vector<ConversionResult> results = convertAll(
        options_, 1, [&](const ConversionResult& result) { told.push_back(result.reason); },
        [&] { return ++asked > 3; });
    EXPECT_THAT(told, testing::ElementsAre((folder_ / "a.mp3").string() + " was interrupted"));
    EXPECT_EQ(results[0].outcome, Outcome::failed);
    EXPECT_EQ(results[1].outcome, Outcome::failed);
    EXPECT_EQ(fs::file_size(folder_ / "a.mp3"), 5U) << "what was there before stays";
    EXPECT_THAT(filesThere(), testing::ElementsAre("a.mp3"));
}

TEST_F(ASoundConversion, OfTwoScoresIntoOneFileMakesTheFirst) {
    options_.tasks = {{(folder_ / "in/a.sng").string(), folder_ / "a.mid", Kind::mid},
                      {(folder_ / "in/deep/a.sng").string(), folder_ / "." / "a.mid", Kind::mid}};
    const auto results = convertAll(options_, 1, [](const ConversionResult&) {});
    EXPECT_EQ(results[0].outcome, Outcome::converted);
    EXPECT_EQ(results[1].outcome, Outcome::failed);
    EXPECT_EQ(results[1].reason,
              (folder_ / "in/deep/a.sng").string() + " would replace the output of another score");
}

TEST_F(ASoundConversion, MakesTheFolderThatIsNamedForItsOutput) {
    options_.makesFolder = true;
    options_.tasks = {{(folder_ / "in/a.sng").string(), folder_ / "new/there/a.mid", Kind::mid}};
    EXPECT_EQ(convertAll(options_, 1, [](const ConversionResult&) {})[0].outcome,
              Outcome::converted);
    EXPECT_TRUE(fs::exists(folder_ / "new/there/a.mid"));
}

TEST_F(ASoundConversion, RemovesPartsOfAnInterruptedReportFromItsFolder) {
    fs::create_directories(folder_ / "reports");
    write("reports/.velorin-1-abandoned.part", "{");
    options_.report = folder_ / "reports" / "report.json";
    options_.tasks = {{(folder_ / "in/a.sng").string(), folder_ / "a.mid", Kind::mid}};
    (void)convertAll(options_, 1, [](const ConversionResult&) {});
    EXPECT_TRUE(fs::is_empty(folder_ / "reports"));
}

TEST(AReport, CountsAndQuotes) {
    const std::string report = reportOf({{"a \"b\"\n.sng", "a.mp3", Outcome::converted, "", 1.25},
                                         {"\xFF.sng", "", Outcome::failed, "is not a score", 0.0}});
    EXPECT_THAT(report, testing::HasSubstr("\"converted\": 1"));
    EXPECT_THAT(report, testing::HasSubstr("\"failed\": 1"));
    EXPECT_THAT(report, testing::HasSubstr("\"a \\\"b\\\"\\u000a.sng\""));
    EXPECT_THAT(report, testing::HasSubstr("\"seconds\": 1.250"));
    EXPECT_THAT(report, testing::HasSubstr("\"\\ufffd.sng\""));
}

} // namespace
} // namespace velorin::convert

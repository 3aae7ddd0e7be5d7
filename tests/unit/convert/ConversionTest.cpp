// Converts a score file to each kind of output.
#include "convert/Conversion.h"
#include "host/synth/SoundFonts.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <utility>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

// One row with a woodblock, which is short and starts at once, at columns 0, 4 and 10. At tempo 100
// a column is 0.12 s.
std::string woodblockScore() {
    std::string text = "60,-1,-1,-1,60,-1,-1,-1,-1,-1,60\r\n115,0,0,0,115,0,0,0,0,0,115\r\n";
    for (int row = 1; row < 13; ++row) {
        text += "-1\r\n0\r\n";
    }
    return text + " 100 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
}

class AConversion : public testing::Test {
protected:
    AConversion()
        : folder_(fs::path(testing::TempDir()) / ("velorin-convert-" + std::to_string(getpid()))) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        write("in.sng", woodblockScore());
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options_.soundFont = fonts.front().path;
    }
    ~AConversion() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    // Returns why it failed; empty on success.
    std::string make(const std::string& name, Kind kind, const std::string& from = "in.sng") {
        return convert({(folder_ / from).string(), folder_ / name, kind}, options_, {}).reason();
    }

    [[nodiscard]] std::size_t filesThere() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
    Options options_;
};

// The left channel of a 16 bit stereo WAV file.
std::vector<int> leftSide(const std::string& wav) {
    std::vector<int> samples;
    for (std::size_t i = 44; i + 3 < wav.size(); i += 4) {
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(wav[i]) |
                                                    static_cast<unsigned char>(wav[i + 1]) << 8));
    }
    return samples;
}

// The loud frames that are more than 0.2 s after the previous one.
std::vector<int> onsetsOf(const std::vector<int>& samples) {
    constexpr int loud = 1000;
    std::vector<int> onsets;
    for (int i = 0; i < static_cast<int>(samples.size()); ++i) {
        const bool isLoud = std::abs(samples[static_cast<std::size_t>(i)]) > loud;
        if (isLoud && (onsets.empty() || i - onsets.back() > 8820))
            onsets.push_back(i);
    }
    return onsets;
}

TEST_F(AConversion, ToSoundPutsNotesWhereTheirColumnsAre) {
    ASSERT_EQ(make("out.wav", Kind::wav), "");
    const std::vector<int> onsets = onsetsOf(leftSide(read("out.wav")));
    ASSERT_EQ(onsets.size(), 3U);
    // The song waits for one column before its first: 0.12 s are 5292 frames.
    EXPECT_GE(onsets[0], 5292);
    EXPECT_LT(onsets[0], 5292 + 441);
    EXPECT_NEAR(onsets[1] - onsets[0], 4 * 5292, 64);
    EXPECT_NEAR(onsets[2] - onsets[1], 6 * 5292, 64);
}

TEST_F(AConversion, ToSoundGivesTheSameBytesEveryTime) {
    ASSERT_EQ(make("one.wav", Kind::wav), "");
    ASSERT_EQ(make("two.wav", Kind::wav), "");
    EXPECT_EQ(read("one.wav"), read("two.wav"));
}

TEST_F(AConversion, ToSoundContinuesUntilASecondIsSilent) {
    ASSERT_EQ(make("out.wav", Kind::wav), "");
    const std::vector<int> samples = leftSide(read("out.wav"));
    // Columns 0 to 11, one before and one after: 14 times 5292 frames.
    ASSERT_GT(samples.size(), 14U * 5292 + 44100);
    ASSERT_LT(samples.size(), 14U * 5292 + 441000);
    for (std::size_t i = samples.size() - 44100; i < samples.size(); ++i) {
        ASSERT_LE(std::abs(samples[i]), 3);
    }
}

TEST_F(AConversion, ToSoundKeepsTheTimesAtAnotherRate) {
    options_.rateHz = 22050;
    ASSERT_EQ(make("out.wav", Kind::wav), "");
    const std::vector<int> onsets = onsetsOf(leftSide(read("out.wav")));
    ASSERT_EQ(onsets.size(), 3U);
    EXPECT_NEAR(onsets[1] - onsets[0], 4 * 2646, 64);
}

TEST_F(AConversion, ToAScoreWritesTheLatestVersionOfTheFormat) {
    ASSERT_EQ(make("out.sng", Kind::sng), "");
    const std::string text = read("out.sng");
    EXPECT_EQ(text.substr(0, woodblockScore().size()), woodblockScore());
    EXPECT_NE(text.find("Polyphonics\r\n"), std::string::npos);
}

// A tempo track and one for the only row that sounds; four columns of 0.12 s are a quarter note.
TEST_F(AConversion, ToMidiIsAFileOfFormat1ThatPlaysAsTheScore) {
    ASSERT_EQ(make("out.mid", Kind::mid), "");
    EXPECT_EQ(read("out.mid").substr(0, 12), std::string("MThd\0\0\0\6\0\1\0\2", 12));
    EXPECT_NE(read("out.mid").find(std::string("\0\xFF\x03\x02in", 6)), std::string::npos);
    EXPECT_NE(read("out.mid").find(std::string("\0\xFF\x51\x03\x07\x53\0", 7)), std::string::npos);
}

// A track for each of the 13 rows; the tempo counts as quarter notes a minute.
TEST_F(AConversion, ToPlainMidiIsTheFileOfTheSaveCommand) {
    options_.plainMidi = true;
    ASSERT_EQ(make("out.mid", Kind::mid), "");
    EXPECT_EQ(read("out.mid").substr(0, 12), std::string("MThd\0\0\0\6\0\1\0\16", 12));
    EXPECT_NE(read("out.mid").find(std::string("\0\xFF\x51\x03\x09\x27\xC0", 7)),
              std::string::npos);
}

// Width and height of a PNG file; zero for anything else.
std::pair<int, int> sizeOf(const std::string& png) {
    if (png.size() < 24 || png.substr(1, 3) != "PNG")
        return {};
    const auto number = [&](std::size_t at) {
        return static_cast<unsigned char>(png[at + 2]) * 256 +
               static_cast<unsigned char>(png[at + 3]);
    };
    return {number(16), number(20)};
}

TEST_F(AConversion, ToAPictureShowsEveryColumnOfTheSong) {
    ASSERT_EQ(make("out.png", Kind::png), "");
    // Columns 0 to 11; one pitch, and two lines on either side.
    EXPECT_EQ(sizeOf(read("out.png")), std::pair(12 * 12, 5 * 12));
}

TEST_F(AConversion, ToAThumbnailFitsIntoASquare) {
    options_.thumbnailPx = 100;
    ASSERT_EQ(make("thumbnail", Kind::png), "");
    EXPECT_EQ(sizeOf(read("thumbnail")), std::pair(100, 75));
    options_.thumbnailPx = 1;
    ASSERT_EQ(make("thumbnail", Kind::png), "");
    EXPECT_EQ(sizeOf(read("thumbnail")), std::pair(1, 1));
    options_.thumbnailPx = 1024; // 12 lines of 12 pixels are not enlarged
    ASSERT_EQ(make("thumbnail", Kind::png), "");
    EXPECT_EQ(sizeOf(read("thumbnail")), std::pair(192, 144));
}

// One row with the pitch 125 in column 0, and another pitch in column 20.
std::string lowScore(const std::string& last) {
    std::string notes = "125";
    std::string instruments = "115";
    for (int column = 1; column < 20; ++column) {
        notes += ",-1";
        instruments += ",0";
    }
    std::string text = notes + "," + last + "\r\n" + instruments + ",115\r\n";
    for (int row = 1; row < 13; ++row)
        text += "-1\r\n0\r\n";
    return text + " 100 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
}

// It has 12 lines and shows columns 0 to 15. The one song has only the five lines 123 to 127, so it
// gets more above them; the other has the lines 116 to 127.
TEST_F(AConversion, ToAThumbnailOfTheLowestNotesEndsWithTheLowestLine) {
    write("one.sng", lowScore("125"));
    write("two.sng", lowScore("118"));
    options_.thumbnailPx = 1024;
    ASSERT_EQ(make("one", Kind::png, "one.sng"), "");
    ASSERT_EQ(make("two", Kind::png, "two.sng"), "");
    EXPECT_EQ(sizeOf(read("one")), std::pair(192, 144));
    EXPECT_EQ(read("one"), read("two"));
}

TEST_F(AConversion, IsOfAFileThatBeginsWithANumber) {
    for (const char* start : {"0", "9", "-1", "+5", "  60"}) {
        write("start.sng", start + std::string("\r\n0\r\n"));
        EXPECT_EQ(make("out.mid", Kind::mid, "start.sng"), "") << start;
    }
    for (const char* start : {"", "-", "a", ",60", "/", ":"}) {
        write("start.sng", start + std::string("\r\n0\r\n"));
        EXPECT_NE(make("out.mid", Kind::mid, "start.sng"), "") << start;
    }
}

TEST_F(AConversion, ThatFailsLeavesNoFiles) {
    write("text.sng", "no score");
    write("empty.sng", "");
    EXPECT_EQ(make("out.wav", Kind::wav, "text.sng"),
              (folder_ / "text.sng").string() + " is not a score");
    EXPECT_NE(make("out.wav", Kind::wav, "empty.sng"), "");
    EXPECT_NE(make("out.wav", Kind::wav, "missing.sng"), "");
    EXPECT_NE(make("nowhere/out.wav", Kind::wav), "");
    options_.soundFont = "/nowhere/at.sf2";
    EXPECT_NE(make("out.wav", Kind::wav), "");
    EXPECT_EQ(filesThere(), 3U);
}

TEST_F(AConversion, ReplacesOnlyFiles) {
    write("out.mid", std::string(20000, 'x'));
    fs::create_directory(folder_ / "folder.mid");
    ASSERT_EQ(make("out.mid", Kind::mid), "");
    EXPECT_LT(read("out.mid").size(), 10001U);
    EXPECT_NE(make("folder.mid", Kind::mid), "");
    EXPECT_NE(convert({"in.sng", "/dev/null", Kind::mid}, options_, {}).reason(), "");
}

TEST_F(AConversion, ReplacesItsOwnScoreOnlyWithTheOptionO) {
    EXPECT_NE(make("in.sng", Kind::sng), "");
    EXPECT_EQ(read("in.sng"), woodblockScore());
    options_.mayReplaceScore = true;
    EXPECT_EQ(make("in.sng", Kind::sng), "");
    EXPECT_NE(read("in.sng"), woodblockScore());
}

} // namespace
} // namespace velorin::convert

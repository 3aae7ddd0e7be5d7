// Renders MIDI files of other programs: warnings and refusals.
#include "convert/Batch.h"
#include "convert/Conversion.h"
#include "host/synth/SoundFonts.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class AMidiConversion : public testing::Test {
protected:
    AMidiConversion() {
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options_.soundFont = fonts.front().path;
        options_.rateHz = 8000;
    }

    [[nodiscard]] std::string at(const std::string& name) const {
        return (folder_.path() / name).string();
    }

    /// A file with one track and 100 ticks per quarter note of half a second.
    void writeMidi(const std::string& name, const std::string& track) const {
        std::string bytes("MThd\0\0\0\6\0\0\0\1\0\x64MTrk\0\0\0", 21);
        bytes += static_cast<char>(track.size());
        std::ofstream(at(name), std::ios::binary) << bytes + track;
    }

    /// Two notes in columns 0 and 4, at tempo 1.
    void writeScore(const std::string& name) const {
        std::string score = "60,-1,-1,-1,60\r\n115,0,0,0,115\r\n";
        for (int row = 1; row < 13; ++row)
            score += "-1\r\n0\r\n";
        std::ofstream(at(name), std::ios::binary)
            << score + " 1 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(at(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::string make(const std::string& from, const std::string& to, Kind kind = Kind::wav) {
        warnings_.clear();
        const auto warning = [this](const std::string& text) { warnings_.push_back(text); };
        return convert({at(from), at(to), kind}, options_, {{}, {}, warning}).reason();
    }

    [[nodiscard]] int loudest(const std::string& wav) const {
        const std::string bytes = read(wav);
        int most = 0;
        for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
            const auto low = static_cast<unsigned char>(bytes[i]);
            const auto high = static_cast<unsigned char>(bytes[i + 1]);
            most = std::max(most, std::abs(static_cast<std::int16_t>(low | high << 8)));
        }
        return most;
    }

    scripted::TemporaryFolder folder_;
    Options options_;
    std::vector<std::string> warnings_;
};

const std::string oneQuarter("\x00\x90\x3C\x40\x64\x80\x3C\x40\x00\xFF\x2F\x00", 12);

TEST_F(AMidiConversion, SoundsWithVelocitiesAbove127) {
    writeMidi("a.mid", std::string("\x00\x90\x3C\xCC\x64\x80\x3C\x40\x00\xFF\x2F\x00", 12));
    ASSERT_EQ(make("a.mid", "a.wav"), "");
    EXPECT_GT(loudest("a.wav"), 100);
    EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(AMidiConversion, OfAFileWithoutNotesIsSilentAndWarns) {
    writeMidi("a.mid", std::string("\x64\xFF\x2F\x00", 4));
    ASSERT_EQ(make("a.mid", "a.wav"), "");
    EXPECT_LE(loudest("a.wav"), 3);
    EXPECT_THAT(warnings_, ElementsAre(at("a.mid") + " has no notes; the sound is silent"));
}

// 4,000 ticks are 20 seconds. A frame has 4 bytes, after a header of 44.
TEST_F(AMidiConversion, OfSilenceEndsASecondAfterTheFileDoes) {
    writeMidi("a.mid", std::string("\x9F\x20\xFF\x2F\x00", 5));
    ASSERT_EQ(make("a.mid", "a.wav"), "");
    EXPECT_EQ(read("a.wav").size(), 44U + 21 * 8000 * 4);
}

TEST_F(AMidiConversion, OfADamagedFileWarnsAndFailsIfItHasNoNotes) {
    writeMidi("cut.mid", oneQuarter.substr(0, 6));
    ASSERT_EQ(make("cut.mid", "cut.wav"), "");
    EXPECT_THAT(warnings_,
                ElementsAre(at("cut.mid") + " is damaged; only the part before the damage is "
                                            "converted"));
    writeMidi("lost.mid", oneQuarter.substr(0, 2));
    EXPECT_EQ(make("lost.mid", "lost.wav"), at("lost.mid") + " is damaged before its first note");
    EXPECT_FALSE(fs::exists(at("lost.wav")));
}

// 48,000 ticks are four minutes.
TEST_F(AMidiConversion, IsRefusedBeforeTheStartIfItIsTooLong) {
    writeMidi("a.mid", std::string("\x00\x90\x3C\x40\x82\xF7\x00\x80\x3C\x40\x00\xFF\x2F\x00", 14));
    options_.maxMinutes = 3;
    EXPECT_EQ(make("a.mid", "a.wav"),
              at("a.mid") + " is too long: 4:00 of sound, 8 MB; --most-minutes allows 3");
    EXPECT_FALSE(fs::exists(at("a.wav")));
    options_.maxMinutes = 4;
    EXPECT_EQ(make("a.mid", "a.wav"), "");
}

// 120,000 ticks are ten minutes; the file has 27 bytes of music.
TEST_F(AMidiConversion, WarnsOfALengthOfTenMinutesBeforeTheStart) {
    writeMidi("a.mid", std::string("\x00\xC0\x05\x87\xA9\x40\x90\x3C\x40\x00\xFF\x2F\x00", 13));
    std::vector<std::string> said;
    options_.tasks = {{at("a.mid"), at("a.wav"), Kind::wav}};
    const auto results = convertAll(
        options_, 1, [&](const ConversionResult& result) { said.push_back(result.reason); }, {},
        [&](const std::string& warning) {
            said.push_back(warning);
            EXPECT_FALSE(fs::exists(at("a.wav")));
        });
    EXPECT_EQ(results[0].outcome, Outcome::converted);
    EXPECT_THAT(said, ElementsAre(at("a.wav") + " will be 10:00 of sound, 19 MB", ""));
}

// Tempo 1 makes a column 12 seconds long. The file has one before column 0 and two after column 4,
// the last.
TEST_F(AMidiConversion, FromAScoreChecksThePlayingTime) {
    writeScore("a.sng");
    options_.maxMinutes = 1;
    EXPECT_EQ(make("a.sng", "a.mid", Kind::mid),
              at("a.sng") + " is too long: it plays for 1:24; --most-minutes allows 1");
    EXPECT_FALSE(fs::exists(at("a.mid")));
    options_.maxMinutes = 2;
    EXPECT_EQ(make("a.sng", "a.mid", Kind::mid), "");
}

// Tempo 1 makes a column 12 seconds long; the song waits for one column before its first.
TEST_F(AMidiConversion, OfAScoreChecksItsLengthToo) {
    writeScore("a.sng");
    options_.maxMinutes = 1;
    EXPECT_EQ(make("a.sng", "a.wav"),
              at("a.sng") + " is too long: 1:24 of sound, 3 MB; --most-minutes allows 1");
}

// 254 bytes with the ending; the system allows 255.
TEST_F(AMidiConversion, ReadsAndWritesLongNames) {
    const std::string name(250, 'x');
    writeMidi(name + ".mid", oneQuarter);
    EXPECT_EQ(make(name + ".mid", name + ".wav"), "");
    EXPECT_TRUE(fs::exists(at(name + ".wav")));
}

TEST_F(AMidiConversion, ReadsAndWritesNamesWithBackslashes) {
    writeMidi("a\\b.mid", oneQuarter);
    EXPECT_EQ(make("a\\b.mid", "a\\b.wav"), "");
    EXPECT_TRUE(fs::exists(at("a\\b.wav")));
    writeScore("c\\d.sng");
    EXPECT_EQ(make("c\\d.sng", "c\\d.mid", Kind::mid), "");
    EXPECT_TRUE(fs::exists(at("c\\d.mid")));
}

} // namespace
} // namespace velorin::convert

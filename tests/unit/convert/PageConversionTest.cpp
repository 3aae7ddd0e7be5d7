// Converts scores to pages.
#include "convert/ColumnTimes.h"
#include "convert/Conversion.h"
#include "convert/LoadedScore.h"
#include "convert/page/PageText.h"
#include "host/media/Lame.h"
#include "host/synth/SoundFonts.h"
#include "support/FullDisk.h"
#include "support/ScriptedMidi.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

// Notes in columns 0 and 4 of the first row. At tempo 100 a column is 0.12 s.
std::string twoNotes() {
    std::string text = "60,1060,-1,-1,60\r\n10,10,0,0,10\r\n";
    for (int row = 1; row < 13; ++row)
        text += "-1\r\n0\r\n";
    return text + " 100 \r\n10,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
}

class APageConversion : public testing::Test {
protected:
    APageConversion()
        : folder_(fs::path(testing::TempDir()) / ("velorin-page-" + std::to_string(getpid()))) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        write("in.sng", twoNotes());
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options_.soundFont = fonts.front().path;
    }
    void SetUp() override {
        if (!host::Lame::load(host::Lame::fileName))
            GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    }
    ~APageConversion() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string make(const std::string& name, Kind kind, const std::string& from = "in.sng") {
        return convert({(folder_ / from).string(), folder_ / name, kind}, options_, callbacks_)
            .reason();
    }
    [[nodiscard]] std::size_t filesThere() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
    Options options_;
    ConversionCallbacks callbacks_;
};

TEST_F(APageConversion, PutsInTheSoundThatAnMp3FileHas) {
    ASSERT_EQ(make("out.html", Kind::html), "");
    ASSERT_EQ(make("out.mp3", Kind::mp3), "");
    const std::string page = read("out.html");
    EXPECT_NE(page.find("data:audio/mpeg;base64," + base64(read("out.mp3")) + "\""),
              std::string::npos);
    EXPECT_EQ(filesThere(), 3U); // the sound has no file of its own
}

TEST_F(APageConversion, IsNamedAfterItsScore) {
    write("<b>.sng", twoNotes());
    ASSERT_EQ(make("out.html", Kind::html, "<b>.sng"), "");
    EXPECT_NE(read("out.html").find("<h1 dir=\"auto\">&lt;b&gt;</h1>"), std::string::npos);
}

TEST_F(APageConversion, OfAStateOfTheHistoryIsNamedAfterThePage) {
    const Task task{"entry 7 of the history", folder_ / "dawn.html", Kind::html, false, twoNotes()};
    ASSERT_EQ(convert(task, options_, {}).reason(), "");
    EXPECT_NE(read("dawn.html").find("<h1 dir=\"auto\">dawn</h1>"), std::string::npos);
}

TEST_F(APageConversion, OfADamagedScoreIsRefusedInOneSentence) {
    write("text.sng", "no score");
    EXPECT_EQ(make("out.html", Kind::html, "text.sng"),
              (folder_ / "text.sng").string() + " is not a score");
    EXPECT_EQ(make("out.html", Kind::html, "missing.sng"),
              (folder_ / "missing.sng").string() + " cannot be read");
    EXPECT_EQ(filesThere(), 2U);
}

TEST_F(APageConversion, OfATooLongScoreIsRefused) {
    write("slow.sng", twoNotes().replace(twoNotes().find(" 100 "), 5, " 1 "));
    options_.maxMinutes = 1;
    EXPECT_EQ(make("out.html", Kind::html, "slow.sng"),
              (folder_ / "slow.sng").string() +
                  " is too long: 1:24 of sound, 2 MB; --most-minutes allows 1");
    EXPECT_FALSE(fs::exists(folder_ / "out.html"));
}

TEST_F(APageConversion, ThatIsStoppedKeepsThePageThatWasThere) {
    write("out.html", "before");
    callbacks_.isStopRequested = [] { return true; };
    EXPECT_EQ(make("out.html", Kind::html), (folder_ / "out.html").string() + " was interrupted");
    EXPECT_EQ(read("out.html"), "before");
    EXPECT_EQ(filesThere(), 2U);
}

// The page is larger than its sound: its text is in it, and base64 takes four bytes for three.
TEST_F(APageConversion, ThatDoesNotFitBesideItsSoundKeepsThePageThatWasThere) {
    ASSERT_EQ(make("sound.mp3", Kind::mp3), "");
    write("out.html", "before");
    {
        const host::test::FullDisk disk(fs::file_size(folder_ / "sound.mp3") + 1000);
        EXPECT_EQ(make("out.html", Kind::html),
                  (folder_ / "out.html").string() + " cannot be written: File too large");
    }
    EXPECT_EQ(read("out.html"), "before");
    EXPECT_EQ(filesThere(), 3U);
}

TEST_F(APageConversion, TakesOnlyScores) {
    EXPECT_FALSE(canMake(Kind::mid, Kind::html));
    EXPECT_FALSE(canMake(Kind::wav, Kind::html));
    EXPECT_TRUE(canMake(Kind::sng, Kind::html));
}

struct TheTimesOfAPlayedSong : testing::Test {
    scripted::VirtualTime time;
    scripted::ScriptedMidi midi{time};
    LoadedScore score{midi};
};

TEST_F(TheTimesOfAPlayedSong, AreAColumnApart) {
    ASSERT_TRUE(score.open("two.sng", twoNotes()));
    const std::vector<double> times = playColumns(score);
    ASSERT_EQ(times.size(), 7U); // columns 0 to 5, and the end
    for (std::size_t i = 0; i < times.size(); ++i)
        EXPECT_NEAR(times[i], 0.12 * static_cast<double>(i + 1), 1e-5) << i;
}

TEST_F(TheTimesOfAPlayedSong, AreLaterAfterAStrummedChord) {
    ASSERT_TRUE(score.open("two.sng", twoNotes()));
    score.studio.setup.setCh(0, true);
    score.studio.setup.setChkstrum(0, true);
    const std::vector<double> times = playColumns(score);
    ASSERT_EQ(times.size(), 7U);
    // A chord of four notes takes 45 + 35 + 35 ms, so the next column begins that much later.
    EXPECT_NEAR(times[0], 0.12, 1e-5);
    EXPECT_NEAR(times[1], 0.24 + 0.115, 1e-5);
    EXPECT_NEAR(times[4], 0.60 + 0.115, 1e-5);
    EXPECT_NEAR(times[5], 0.72 + 0.230, 1e-5);
}

TEST_F(TheTimesOfAPlayedSong, OfASongWithoutATempoAreAllZero) {
    ASSERT_TRUE(score.open("two.sng", twoNotes().replace(twoNotes().find(" 100 "), 5, " 0 ")));
    EXPECT_EQ(playColumns(score), std::vector<double>(7, 0.0));
}

} // namespace
} // namespace velorin::convert

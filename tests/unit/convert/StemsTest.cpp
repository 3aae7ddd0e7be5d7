// Makes the stems of scores and adds them up.
#include "convert/Stems.h"

#include "ScoreSounds.h"
#include "convert/Conversion.h"
#include "support/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <set>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using test::Note;
using test::Sound;

constexpr int openHiHat = 139;   // key 46
constexpr int closedHiHat = 135; // key 42
constexpr int crash = 142;       // key 49

// Two rows of notes, one of them with chords of two rows in unison, and four of drums, of which
// some end each other.
const std::vector<Note>& band() {
    static const std::vector<Note> notes = {
        {0, 0, 60, 4, 0},         {0, 4, 62, 4, 0},
        {0, 8, 64, 3, 0},         {3, 0, 72, 8, 33},
        {3, 8, 76, 2, 33},        {8, 0, 50, 1, crash},
        {9, 2, 51, 1, openHiHat}, {10, 4, 52, 1, closedHiHat},
        {9, 6, 51, 1, openHiHat}, {11, 6, 53, 1, 131},
        {12, 7, 53, 1, 131},
    };
    return notes;
}

class StemsTest : public testing::Test {
protected:
    [[nodiscard]] std::string write(const std::vector<Note>& notes) const {
        const fs::path file = folder.path() / "song.sng";
        std::ofstream(file, std::ios::binary) << test::scoreOf(100, notes);
        return file.string();
    }

    [[nodiscard]] Sound mixOf(const std::vector<Note>& notes) const {
        Options mixed = options;
        mixed.makesStems = false;
        return test::soundOf({write(notes), folder.path() / "mix.wav", Kind::wav}, mixed);
    }

    void makeStemsOf(const std::vector<Note>& notes) const {
        const auto made = convert({write(notes), target, Kind::wav}, options, {});
        ASSERT_TRUE(made) << made.reason();
    }

    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            found.insert(entry.path().filename().string());
        return found;
    }

    /// The largest difference of the mix and the sum of all stems, in steps of 16 bits.
    [[nodiscard]] double differenceFrom(const Sound& mix) const {
        std::vector<double> sum(mix.samples.size());
        for (int row = 0; row < 13; ++row) {
            if (!fs::exists(stemName(target, row)))
                continue;
            const Sound stem = test::readSound(stemName(target, row));
            EXPECT_EQ(stem.samples.size(), mix.samples.size());
            for (std::size_t i = 0; i < std::min(sum.size(), stem.samples.size()); ++i)
                sum[i] += stem.samples[i];
        }
        double largest = 0.0;
        for (std::size_t i = 0; i < sum.size(); ++i)
            largest = std::max(largest, std::abs(sum[i] - mix.samples[i]));
        return largest;
    }

    scripted::TemporaryFolder folder;
    fs::path target = folder.path() / "song.wav";
    Options options = [] {
        Options made = test::usualOptions();
        made.makesStems = true;
        return made;
    }();
};

TEST_F(StemsTest, HaveOneFileForEachRowThatSounds) {
    makeStemsOf(band());
    EXPECT_EQ(names(),
              (std::set<std::string>{"song.sng", "song-ch1.wav", "song-ch4.wav", "song-drums1.wav",
                                     "song-drums2.wav", "song-drums3.wav", "song-drums4.wav",
                                     "song-drums5.wav"}));
}

TEST_F(StemsTest, AddUpToTheDryMix) {
    options.isDry = true;
    makeStemsOf(band());
    EXPECT_LT(differenceFrom(mixOf(band())), 0.1);
}

TEST_F(StemsTest, AddUpToTheMixWithReverberation) {
    makeStemsOf(band());
    const Sound mix = mixOf(band());
    EXPECT_GT(mix.power(0.0, 1.0), 1000.0);
    EXPECT_LT(differenceFrom(mix), 0.1);
}

TEST_F(StemsTest, AreTheirRowsAlone) {
    options.isDry = true;
    makeStemsOf(band());
    const Sound stem = test::readSound(stemName(target, 3));
    const Sound alone = mixOf({{3, 0, 72, 8, 33}, {3, 8, 76, 2, 33}});
    double difference = 0.0;
    for (std::size_t i = 0; i < alone.samples.size(); ++i)
        difference += std::pow(stem.samples.at(i) - alone.samples[i], 2.0);
    difference /= static_cast<double>(alone.samples.size());
    EXPECT_LT(difference, 1e-4 * alone.power(0.0, alone.seconds()));
}

TEST_F(StemsTest, OfAnOpenHiHatEndWhereTheClosedOneOfAnotherRowBegins) {
    options.isDry = true;
    const Note open{9, 0, 51, 1, openHiHat};
    makeStemsOf({open, {10, 1, 52, 1, closedHiHat}});
    const Sound stem = test::readSound(stemName(target, 9));
    const Sound alone = mixOf({open});
    EXPECT_GT(alone.power(0.30, 0.40), 1000.0);
    EXPECT_LT(stem.power(0.30, 0.40), 0.25 * alone.power(0.30, 0.40));
    EXPECT_GT(stem.power(0.12, 0.22), 0.5 * alone.power(0.12, 0.22));
}

TEST_F(StemsTest, OfAScoreWithoutNotesAreNotMade) {
    const auto made = convert({write({}), target, Kind::wav}, options, {});
    EXPECT_THAT(made.reason(),
                testing::EndsWith("song.sng has no notes, so there are no stems to make"));
    EXPECT_EQ(names(), std::set<std::string>{"song.sng"});
}

TEST_F(StemsTest, AreNotMadeFromOtherFiles) {
    const fs::path midi = folder.path() / "song.mid";
    std::ofstream(midi) << "MThd";
    const auto made = convert({midi.string(), target, Kind::wav}, options, {});
    EXPECT_THAT(made.reason(),
                testing::EndsWith("song.mid has no rows; stems are made from scores"));
}

TEST_F(StemsTest, ThatAreStoppedLeaveNothing) {
    int calls = 0;
    const auto made = convert({write(band()), target, Kind::wav}, options,
                              {{}, [&calls] { return ++calls > 3; }, {}});
    EXPECT_THAT(made.reason(), testing::EndsWith("song.wav was interrupted"));
    EXPECT_EQ(names(), std::set<std::string>{"song.sng"});
}

TEST_F(StemsTest, ThatAreTooLongAreNotMade) {
    options.maxMinutes = 1;
    const auto made = convert({write({{0, 990, 60, 1, 0}}), target, Kind::wav}, options, {});
    EXPECT_THAT(made.reason(), testing::HasSubstr("is too long: 1:59 of sound"));
    EXPECT_EQ(names(), std::set<std::string>{"song.sng"});
}

TEST_F(StemsTest, OnAFullDiskAreNotMade) {
    const std::string score = write(band());
    const host::test::FullDisk disk(20'000);
    const auto made = convert({score, target, Kind::wav}, options, {});
    EXPECT_THAT(made.reason(),
                testing::ContainsRegex("song-(ch|drums)[0-9].wav cannot be written"));
    EXPECT_EQ(names(), std::set<std::string>{"song.sng"});
}

TEST_F(StemsTest, NeedAScoreASoundFontAndAShortName) {
    const std::string score = write(band());
    std::ofstream(folder.path() / "text.sng") << "no score";
    EXPECT_THAT(
        convert({(folder.path() / "text.sng").string(), target, Kind::wav}, options, {}).reason(),
        testing::EndsWith("text.sng is not a score"));
    const fs::path longName = folder.path() / (std::string(250, 'x') + ".wav");
    EXPECT_THAT(convert({score, longName, Kind::wav}, options, {}).reason(),
                testing::EndsWith("-ch1.wav cannot be written: File name too long"));
    options.soundFont = folder.path() / "no.sf2";
    EXPECT_EQ(convert({score, target, Kind::wav}, options, {}).reason(),
              score + " cannot be played: no SoundFont " + options.soundFont.string());
    EXPECT_EQ(names(), (std::set<std::string>{"song.sng", "text.sng"}));
}

} // namespace
} // namespace velorin::convert

// Scores that follow one another in one sound.
#include "ScoreSounds.h"
#include "convert/Conversion.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using test::Note;
using test::Sound;

constexpr int claves = 168; // key 75: a short knock
constexpr int bells = 14;   // tubular bells ring for seconds

class JoinTest : public testing::Test {
protected:
    std::string write(const std::string& name, int tempo, const std::vector<Note>& notes) const {
        const fs::path file = folder.path() / name;
        std::ofstream(file, std::ios::binary) << test::scoreOf(tempo, notes);
        return file.string();
    }

    [[nodiscard]] Task joined(const std::vector<std::string>& scores) const {
        Task task{scores.front(), target, Kind::wav};
        task.followers.assign(scores.begin() + 1, scores.end());
        return task;
    }

    scripted::TemporaryFolder folder;
    fs::path target = folder.path() / "long.wav";
    Options options = test::usualOptions();
};

// A column lasts 0.6 s at tempo 20 and 0.2 s at tempo 60. A play begins with the wait of a column.
TEST_F(JoinTest, BeginsEachScoreWhereTheLastNoteOfTheOneBeforeEnds) {
    const auto first = write("a.sng", 20, {{8, 0, 50, 1, claves}});
    const auto second = write("b.sng", 60, {{8, 0, 50, 1, claves}, {8, 4, 50, 1, claves}});
    const auto third = write("c.sng", 20, {{8, 1, 50, 1, claves}});
    const Sound sound = test::soundOf(joined({first, second, third}), options);
    std::vector<double> onsets;
    for (int i = 1; i < static_cast<int>(sound.seconds() * 100) - 2; ++i) {
        const double at = i / 100.0;
        if (sound.power(at, at + 0.01) > 1e4 + 20.0 * sound.power(at - 0.02, at - 0.01))
            if (onsets.empty() || at - onsets.back() > 0.05)
                onsets.push_back(at);
    }
    // 0.6; its end 1.2 = column 0 of b, column 4 at 2.0, its end 2.2 = column 0 of c.
    ASSERT_EQ(onsets.size(), 4U);
    const double expected[] = {0.6, 1.2, 2.0, 2.8};
    for (std::size_t i = 0; i < onsets.size(); ++i)
        EXPECT_NEAR(onsets[i], expected[i], 0.015);
}

TEST_F(JoinTest, LetsTailsRingOn) {
    const auto bell = write("a.sng", 300, {{0, 0, 60, 1, bells}});
    const auto rest = write("b.sng", 300, {{1, 20, 60, 1, 0}});
    const Sound sound = test::soundOf(joined({bell, rest}), options);
    const Sound alone = test::soundOf({bell, folder.path() / "alone.wav", Kind::wav}, options);
    EXPECT_GT(alone.power(0.2, 0.4), 1000.0);
    EXPECT_NEAR(sound.power(0.2, 0.4) / alone.power(0.2, 0.4), 1.0, 0.01);
}

TEST_F(JoinTest, OfOneScoreIsItsSound) {
    const auto score = write("a.sng", 100, {{0, 0, 60, 4, 0}});
    Task one{score, folder.path() / "one.wav", Kind::wav};
    EXPECT_EQ(test::soundOf(joined({score}), options).samples, test::soundOf(one, options).samples);
}

TEST_F(JoinTest, OfTheSameScoreTwiceIsAllowed) {
    const auto score = write("a.sng", 100, {{0, 0, 60, 4, 0}});
    EXPECT_GT(test::soundOf(joined({score, score}), options).power(0.61, 1.0), 1000.0);
}

TEST_F(JoinTest, NamesTheFileThatIsNoScore) {
    const auto score = write("a.sng", 100, {{0, 0, 60, 4, 0}});
    const fs::path other = folder.path() / "b.sng";
    std::ofstream(other) << "hello";
    const auto made = convert(joined({score, other.string()}), options, {});
    EXPECT_EQ(made.reason(), score + " cannot be joined: " + other.string() + " is not a score");
    EXPECT_FALSE(fs::exists(target));
}

TEST_F(JoinTest, NeedsScores) {
    const fs::path midi = folder.path() / "a.mid";
    std::ofstream(midi) << "MThd";
    const auto made = convert(joined({midi.string(), midi.string()}), options, {});
    EXPECT_THAT(made.reason(), testing::EndsWith("a.mid cannot be joined: it is not a score"));
}

TEST_F(JoinTest, CountsTheLengthOfAllScores) {
    const auto score = write("a.sng", 20, {{0, 50, 60, 1, 0}});
    options.maxMinutes = 1;
    const auto made = convert(joined({score, score}), options, {});
    EXPECT_THAT(made.reason(), testing::HasSubstr("is too long: 1:0"));
    EXPECT_FALSE(fs::exists(target));
}

} // namespace
} // namespace velorin::convert

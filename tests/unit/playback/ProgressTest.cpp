// The share of the song that has been played, as the recording window shows it.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace velorin {
namespace {

struct Progress : testing::Test, PlaybackStage {
    Progress() { studio.run.RecordToolbarOpen = flagSet; }

    void play() { sequencer.PlayAndStop_Click(0); }

    Lines shown() {
        Lines lines;
        for (const std::string& line : asked()) {
            if (line.find("progress") != std::string::npos)
                lines.push_back(line.substr(line.find(' ') + 1));
        }
        return lines;
    }
};

TEST_F(Progress, IsTheShareOfTheLastColumn) {
    write(0, "60 = = =");
    play();
    EXPECT_EQ(shown(), (Lines{"progress 0.250000 \"25 %\"", "progress 0.500000 \"50 %\"",
                              "progress 0.750000 \"75 %\"", "progress 1.000000 \"100 %\"",
                              "progress 1.250000 \"125 %\"", "end progress"}));
    EXPECT_EQ(studio.run.ProgressCount, 0);
}

TEST_F(Progress, OfHalfAPercentGoesToTheEvenNumber) {
    write(0, "60 = = = = = = =");
    play();
    const Lines lines = shown();
    EXPECT_EQ(lines[0], "progress 0.125000 \"12 %\"");
    EXPECT_EQ(lines[2], "progress 0.375000 \"38 %\"");
}

// 1 of 40 is 2.5 %; in single precision the share would be a little more.
TEST_F(Progress, IsRoundedFromTheShareInDoublePrecision) {
    studio.score.NoteArray.write(0, 39, 60);
    at(0.15, [this] { sequencer.PlayAndStop_Click(1); });
    play();
    EXPECT_EQ(shown()[0], "progress 0.025000 \"2 %\"");
}

TEST_F(Progress, OfNothingHasNoDigits) {
    play();
    EXPECT_EQ(shown(), (Lines{"progress 0.000000 \" %\"", "end progress"}));
    studio.score.NoteArray.write(0, 500, 60);
    at(0.15, [this] { sequencer.PlayAndStop_Click(1); });
    play();
    EXPECT_EQ(shown()[0], "progress 0.001996 \" %\"");
}

TEST_F(Progress, FromTwiceTheSongOnKeepsItsCaption) {
    write(0, "60 =");
    studio.run.ProgressCount = 2;
    play();
    EXPECT_EQ(shown(), (Lines{"progress 1.500000 \"150 %\"", "progress 2.000000",
                              "progress 2.500000", "end progress"}));
}

// 2147483647 / 2, and so on for as long as the song loops.
TEST_F(Progress, StaysAtItsLargestCount) {
    write(0, "60 =");
    studio.run.ProgressCount = std::numeric_limits<std::int32_t>::max();
    play();
    EXPECT_EQ(shown(), (Lines{"progress 1073741823.500000", "progress 1073741823.500000",
                              "progress 1073741823.500000", "end progress"}));
}

TEST_F(Progress, IsNeitherShownNorCountedWithoutItsWindow) {
    studio.run.RecordToolbarOpen = flagClear;
    write(0, "60 = = =");
    at(0.30, [this] { EXPECT_EQ(studio.run.ProgressCount, 0); });
    play();
    EXPECT_EQ(shown(), Lines{});
}

} // namespace
} // namespace velorin

// The scores that come with the program: they load completely and are saved without a change.
#include "Songs.h"
#include "model/MidiExport.h"
#include "model/RowOptions.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

using namespace velorin;
using namespace velorin::test;

namespace {

class OwnSongsTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        std::ifstream file(std::filesystem::path(VELORIN_SONGS) / GetParam(), std::ios::binary);
        ASSERT_TRUE(file) << GetParam();
        std::ostringstream whole;
        whole << file.rdbuf();
        text = whole.str();
        std::istringstream again(text);
        ScoreReader reader(&again, *score);
        reader.readRows();
        reader.readTempo();
        reader.readRowInstruments();
        reader.readChordMarks();
    }

    std::string text;
    std::unique_ptr<Score> score = std::make_unique<Score>();
    RowOptions setup;
};

} // namespace

// A save moves the chord marks one column to the left, so the test first moves them one to the
// right.
TEST_P(OwnSongsTest, IsWrittenAgainByteForByte) {
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        for (int entry = lastGridColumn; entry > 0; --entry)
            score->PolyArray.write(lane, entry, score->PolyArray.at(lane, entry - 1));
    }
    EXPECT_EQ(scoreText(*score), text);
}

TEST_P(OwnSongsTest, HasALengthAndATempoToPlay) {
    score->FindLastColumn(setup);
    EXPECT_GE(score->LastColumn, 64);
    EXPECT_LE(score->LastColumn, 200);
    EXPECT_GE(score->Tempo, 20);
}

TEST_P(OwnSongsTest, HasNoOrphanAndNoMarkOverARest) {
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const int cell = score->NoteArray.at(row, column);
            const int before = column == 0 ? -1 : score->NoteArray.at(row, column - 1);
            const bool goesOn = !isEmpty(before) && pitchOf(before) == pitchOf(cell);
            EXPECT_TRUE(!isHeld(cell) || goesOn) << row << " " << column;
            const bool isMarked =
                isMusicRow(row) && score->PolyArray.read(row + 1, column + 1).value_or(0) == 1;
            EXPECT_TRUE(!isMarked || isStart(cell)) << row << " " << column;
        }
    }
}

TEST_P(OwnSongsTest, FitsIntoAMidiFile) {
    EXPECT_LT(midiFileOf(*score, setup).size(), 10'000U);
}

INSTANTIATE_TEST_SUITE_P(Songs, OwnSongsTest,
                         testing::Values("harbour-lights.sng", "market-street.sng",
                                         "mill-pond-waltz.sng", "paper-boat.sng",
                                         "three-friends.sng"),
                         [](const auto& song) {
                             std::string name = song.param;
                             std::erase_if(name, [](char c) { return c == '-' || c == '.'; });
                             return name;
                         });

// The grids, their clearing, and the end of the song.
#include "Songs.h"
#include "model/RowOptions.h"

#include <gtest/gtest.h>

#include <memory>

using namespace velorin;
using namespace velorin::test;

namespace {

class ScoreTest : public testing::Test {
protected:
    int lastColumn() {
        score->FindLastColumn(setup);
        return score->LastColumn;
    }

    std::unique_ptr<Score> score = std::make_unique<Score>();
    RowOptions setup;
};

} // namespace

TEST_F(ScoreTest, NewScoreIsEmptyAtTempo100) {
    EXPECT_EQ(cells(score->NoteArray, 12, 998, 1000), "-1,-1,-1");
    EXPECT_EQ(cells(score->InstrumentArray, 0, 0, 2), "0,0,0");
    EXPECT_EQ(score->Tempo, 100);
    EXPECT_EQ(score->SelectStart, -1);
}

TEST_F(ScoreTest, ScoreWithoutNotesEndsAtColumn0) {
    EXPECT_EQ(lastColumn(), 0);
}

TEST_F(ScoreTest, NoteInColumn0AloneLeavesTheEndAtColumn0) {
    putRow(*score, 3, "60");
    EXPECT_EQ(lastColumn(), 0);
}

TEST_F(ScoreTest, NoteInColumn1EndsTheSongAtColumn2) {
    putRow(*score, 3, "-1,60");
    EXPECT_EQ(lastColumn(), 2);
}

TEST_F(ScoreTest, LaterRowWhoseLastCellLiesOnTheEndDoesNotRaiseIt) {
    putRow(*score, 0, "-1,-1,-1,-1,-1,60");
    putRow(*score, 1, "-1,-1,-1,-1,-1,-1,60");
    EXPECT_EQ(lastColumn(), 6);
}

TEST_F(ScoreTest, EarlierRowOfThatLengthDoesRaiseIt) {
    putRow(*score, 0, "-1,-1,-1,-1,-1,-1,60");
    putRow(*score, 1, "-1,-1,-1,-1,-1,60");
    EXPECT_EQ(lastColumn(), 7);
}

TEST_F(ScoreTest, HeldCellCountsLikeANote) {
    putRow(*score, 12, "60,1060,1060", 128);
    EXPECT_EQ(lastColumn(), 3);
}

TEST_F(ScoreTest, NoteInAHiddenRowDoesNotLengthenTheSong) {
    putRow(*score, 0, "-1,60");
    putRow(*score, 5, "-1,-1,-1,-1,60");
    setup.rows[5].hidden = true;
    EXPECT_EQ(lastColumn(), 2);
}

TEST_F(ScoreTest, FullRowEndsTheSongAfterTheGrid) {
    score->NoteArray.write(0, 1000, 60);
    EXPECT_EQ(lastColumn(), 1001);
}

TEST_F(ScoreTest, ClearingTheNotesKeepsTheChordMarks) {
    putRow(*score, 0, "60,1060", 24);
    score->PolyArray.write(1, 1, 1);
    score->ClearNoteArrays();
    EXPECT_EQ(cells(score->NoteArray, 0, 0, 1), "-1,-1");
    EXPECT_EQ(cells(score->InstrumentArray, 0, 0, 1), "0,0");
    EXPECT_EQ(score->PolyArray.at(1, 1), 1);
}

TEST_F(ScoreTest, ClearingTheChordMarksLeavesTheUnusedLane) {
    score->PolyArray.write(0, 5, 1);
    score->PolyArray.write(1, 0, 1);
    score->PolyArray.write(8, 1000, 1);
    score->ClearPolies();
    EXPECT_EQ(score->PolyArray.at(0, 5), 1);
    EXPECT_EQ(score->PolyArray.at(1, 0), 0);
    EXPECT_EQ(score->PolyArray.at(8, 1000), 0);
}

TEST_F(ScoreTest, WriteOutsideTheGridIsDroppedAndAReadFindsNothing) {
    EXPECT_FALSE(score->NoteArray.write(13, 0, 5));
    EXPECT_FALSE(score->NoteArray.write(0, 1001, 5));
    EXPECT_FALSE(score->NoteArray.write(-1, 0, 5));
    EXPECT_EQ(score->NoteArray.read(0, 1001), std::nullopt);
    EXPECT_EQ(score->NoteArray.read(0, -1), std::nullopt);
    EXPECT_EQ(score->NoteArray.at(1, 0), -1);
}

TEST(Cell, ThreeTestsDistinguishTheKinds) {
    EXPECT_TRUE(isEmpty(-1) && !isStart(-1) && !isHeld(-1));
    EXPECT_TRUE(isStart(0) && isStart(999) && !isHeld(999));
    EXPECT_TRUE(isHeld(1000) && isHeld(1127) && !isStart(1000));
    EXPECT_EQ(pitchOf(1060), 60);
}

TEST(Cell, PitchesCountDownwardsFromKey127) {
    EXPECT_EQ(PitchToKey(60), 67);
    EXPECT_EQ(PitchToKey(127), 0);
    EXPECT_EQ(percussionKey(128), 35);
    EXPECT_EQ(percussionKey(174), 81);
}

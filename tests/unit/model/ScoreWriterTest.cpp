// Score files as they are written, and read back.
#include "model/ScoreWriter.h"

#include "Songs.h"
#include "model/ScoreReader.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

using namespace velorin;
using namespace velorin::test;

namespace {

class ScoreWriterTest : public testing::Test {
protected:
    static std::unique_ptr<Score> readBack(const std::string& text) {
        auto again = std::make_unique<Score>();
        std::istringstream file(text);
        ScoreReader reader(&file, *again);
        reader.readRows();
        reader.readTempo();
        reader.readRowInstruments();
        reader.readChordMarks();
        return again;
    }

    std::unique_ptr<Score> score = std::make_unique<Score>();
};

/// Line `number` of a text, counted from 1.
std::string line(const std::string& text, int number) {
    std::istringstream lines(text);
    std::string found;
    while (number-- > 0)
        std::getline(lines, found);
    return found;
}

} // namespace

TEST_F(ScoreWriterTest, EmptyScoreHasTwoLinesForEachRow) {
    EXPECT_EQ(scoreText(*score), times(13, "-1\r\n0\r\n") + " 100 \r\n" +
                                     "0,0,0,0,0,0,0,0,0,0,0,0,0\r\nPolyphonics\r\n" +
                                     times(8, "0\r\n"));
}

TEST_F(ScoreWriterTest, TwoHeldQuarterNotesAreEightColumns) {
    putRow(*score, 0, "60,1060,1060,1060,62,1062,1062,1062", 24);
    score->Tempo = 80;
    score->RowInstrument[0] = 24;
    EXPECT_EQ(scoreText(*score),
              "60,1060,1060,1060,62,1062,1062,1062\r\n24,24,24,24,24,24,24,24\r\n" +
                  times(12, "-1\r\n0\r\n") +
                  " 80 \r\n24,0,0,0,0,0,0,0,0,0,0,0,0\r\nPolyphonics\r\n" +
                  times(8, "0,0,0,0,0,0,0,0\r\n"));
}

TEST_F(ScoreWriterTest, RestsWithinARowAreWrittenAndThoseAfterItAreNot) {
    putRow(*score, 3, "-1,60,-1,-1,62", 7);
    EXPECT_EQ(line(scoreText(*score), 7), "-1,60,-1,-1,62\r");
    EXPECT_EQ(line(scoreText(*score), 8), "0,7,0,0,7\r");
}

TEST_F(ScoreWriterTest, LanesAreAsLongAsTheLongestRow) {
    putRow(*score, 0, "60", 1);
    putRow(*score, 9, "-1,-1,60", 128);
    score->PolyArray.write(2, 1, 1);
    score->PolyArray.write(2, 3, 1);
    score->PolyArray.write(2, 4, 1);
    EXPECT_EQ(line(scoreText(*score), 31), "1,0,1\r");
}

TEST_F(ScoreWriterTest, FullRowLeavesOutTheFieldThatTheGridDoesNotHave) {
    score->NoteArray.write(0, 1000, 60);
    EXPECT_EQ(line(scoreText(*score), 1).size(), 1000U * 3 + 2 + 1) << "-1, a thousand times";
    EXPECT_EQ(line(scoreText(*score), 30).size(), 1000U * 2 - 1 + 1) << "1000 fields";
}

TEST_F(ScoreWriterTest, NegativeCellBelowMinusOneCounts) {
    putRow(*score, 0, "-1,-1,-5");
    EXPECT_EQ(line(scoreText(*score), 1), "-1,-1,-5\r");
}

TEST_F(ScoreWriterTest, NegativeTempoHasBlanksAroundItToo) {
    score->Tempo = -5;
    EXPECT_EQ(line(scoreText(*score), 27), " -5 \r");
}

TEST_F(ScoreWriterTest, WhatIsWrittenIsReadBack) {
    putRow(*score, 0, "60,1060,-1,62", 24);
    putRow(*score, 12, "-1,-1,66,1066,67", 140);
    score->InstrumentArray.write(0, 3, 40);
    score->Tempo = 300;
    score->RowInstrument = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
    const auto again = readBack(scoreText(*score));
    EXPECT_EQ(again->NoteArray, score->NoteArray);
    EXPECT_EQ(again->InstrumentArray, score->InstrumentArray);
    EXPECT_EQ(again->Tempo, 300);
    EXPECT_EQ(again->RowInstrument, score->RowInstrument);
}

TEST_F(ScoreWriterTest, MarkAtColumn5SoundsAtColumn4AfterSaveAndLoad) {
    putRow(*score, 0, "60,60,60,60,60,60,60,60", 24);
    score->PolyArray.write(1, 5 + 1, 1);
    const auto again = readBack(scoreText(*score));
    EXPECT_EQ(again->PolyArray.at(1, 4 + 1), 1);
    EXPECT_EQ(again->PolyArray.at(1, 5 + 1), 0);
}

TEST_F(ScoreWriterTest, MarkOfColumn0MovesToTheEntryThatNoNoteUses) {
    putRow(*score, 0, "60,60", 24);
    score->PolyArray.write(1, 1, 1);
    const auto again = readBack(scoreText(*score));
    EXPECT_EQ(cells(again->PolyArray, 1, 0, 2), "1,0,0");
}

TEST_F(ScoreWriterTest, KeptScoreIsReadBackWithItsChordMarksInPlace) {
    putRow(*score, 0, "60,1060,-1,62", 24);
    putRow(*score, 9, "-1,40", 130);
    score->PolyArray.write(1, 1, 1); // column 0 of row 0
    score->PolyArray.write(8, 4, 1); // column 3 of row 7
    score->Tempo = 80;
    score->RowInstrument[3] = 17;
    const auto again = readBack(keptText(*score));
    EXPECT_EQ(again->NoteArray, score->NoteArray);
    EXPECT_EQ(again->InstrumentArray, score->InstrumentArray);
    EXPECT_EQ(again->PolyArray, score->PolyArray);
    EXPECT_EQ(again->Tempo, 80);
    EXPECT_EQ(again->RowInstrument, score->RowInstrument);
}

TEST_F(ScoreWriterTest, KeptScoreHasTheMarksAfterTheLastNoteToo) {
    putRow(*score, 0, "60");
    score->PolyArray.write(2, 1000, 1);
    EXPECT_EQ(readBack(keptText(*score))->PolyArray, score->PolyArray);
}

TEST_F(ScoreWriterTest, ScoreWithANoteOrAChordMarkIsWorthKeeping) {
    EXPECT_FALSE(isWorthKeeping(*score));
    score->PolyArray.write(3, 7, 1);
    EXPECT_TRUE(isWorthKeeping(*score));
    score->ClearPolies();
    score->NoteArray.write(12, 1000, 5);
    EXPECT_TRUE(isWorthKeeping(*score));
}

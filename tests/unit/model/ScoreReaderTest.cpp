// Score files of every version of the format: whole, cut and damaged.
#include "model/ScoreReader.h"

#include "Songs.h"
#include "model/ScoreWriter.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

using namespace velorin;
using namespace velorin::test;

namespace {

const std::string rowInstruments = "24,1,2,3,4,5,6,7,128,129,130,131,132\r\n";

class ScoreReaderTest : public testing::Test {
protected:
    void read(const std::string& text) {
        std::istringstream file(text);
        readFrom(&file);
    }

    void readFrom(std::istream* file) {
        ScoreReader reader(file, *score);
        reader.readRows();
        reader.readTempo();
        reader.readRowInstruments();
        reader.readChordMarks();
        hasPercussion = reader.hasPercussion();
    }

    std::unique_ptr<Score> score = std::make_unique<Score>();
    bool hasPercussion = false;
};

} // namespace

TEST_F(ScoreReaderTest, RowsGoIntoTheGridsAndWhatTheyLackStaysEmpty) {
    read(gridLines("60,1060,-1,62", "24,24,0,25"));
    EXPECT_EQ(cells(score->NoteArray, 0, 0, 4), "60,1060,-1,62,-1");
    EXPECT_EQ(cells(score->InstrumentArray, 0, 0, 4), "24,24,0,25,0");
    EXPECT_EQ(cells(score->NoteArray, 1, 0, 1), "-1,-1");
}

TEST_F(ScoreReaderTest, FileOfGridsAloneLeavesTheTempoAndTakesInstrumentsFromColumn0) {
    score->Tempo = 77;
    score->RowInstrument.fill(9);
    read(gridLines("60,62", "24,25"));
    EXPECT_EQ(score->Tempo, 77);
    EXPECT_EQ(score->RowInstrument[0], 24);
    EXPECT_EQ(score->RowInstrument[1], 0);
}

TEST_F(ScoreReaderTest, FileWithTempoTakesInstrumentsFromColumn0) {
    read(gridLines("60,62", "24,25") + " 70 \r\n");
    EXPECT_EQ(score->Tempo, 70);
    EXPECT_EQ(score->RowInstrument[0], 24);
}

TEST_F(ScoreReaderTest, FileWithRowInstrumentsTakesThem) {
    read(gridLines("60,62", "30,31") + " 70 \r\n" + rowInstruments);
    EXPECT_EQ(score->RowInstrument[0], 24);
    EXPECT_EQ(score->RowInstrument[12], 132);
}

TEST_F(ScoreReaderTest, TempoAbove300Becomes300) {
    read(gridLines("60", "0") + " 301 \r\n");
    EXPECT_EQ(score->Tempo, 300);
}

TEST_F(ScoreReaderTest, TempoBelow20IsTaken) {
    read(gridLines("60", "0") + " 5 \r\n");
    EXPECT_EQ(score->Tempo, 5);
}

TEST_F(ScoreReaderTest, TempoOutsideSixteenBitsIsSkipped) {
    score->Tempo = 77;
    read(gridLines("60", "0") + " 40000 \r\n" + rowInstruments);
    EXPECT_EQ(score->Tempo, 77);
    EXPECT_EQ(score->RowInstrument[0], 24);
}

TEST_F(ScoreReaderTest, RowInstrumentsMayFollowOnTheTemposLine) {
    read(gridLines("60", "0") + " 70 " + rowInstruments);
    EXPECT_EQ(score->Tempo, 70);
    EXPECT_EQ(score->RowInstrument[0], 24);
    EXPECT_EQ(score->RowInstrument[12], 132);
}

TEST_F(ScoreReaderTest, ShortLineOfRowInstrumentsLeavesTheOthers) {
    score->RowInstrument.fill(9);
    read(gridLines("60", "0") + " 70 \r\n1,70000,3\r\n");
    EXPECT_EQ(score->RowInstrument[0], 1);
    EXPECT_EQ(score->RowInstrument[1], 9);
    EXPECT_EQ(score->RowInstrument[2], 3);
    EXPECT_EQ(score->RowInstrument[3], 9);
}

TEST_F(ScoreReaderTest, ChordMarksGoIntoTheEntryOfTheirField) {
    read(gridLines("60", "0") + " 70 \r\n" + rowInstruments + "Polyphonics\r\n0,0,1\r\n" +
         times(7, "1,0,0\r\n"));
    EXPECT_EQ(cells(score->PolyArray, 1, 0, 3), "0,0,1,0");
    EXPECT_EQ(cells(score->PolyArray, 8, 0, 3), "1,0,0,0");
    EXPECT_EQ(cells(score->PolyArray, 0, 0, 3), "0,0,0,0");
}

TEST_F(ScoreReaderTest, FileWithoutChordMarksKeepsTheFormerOnes) {
    score->PolyArray.write(1, 7, 1);
    read(gridLines("60", "0") + " 70 \r\n" + rowInstruments);
    EXPECT_EQ(score->PolyArray.at(1, 7), 1);
}

TEST_F(ScoreReaderTest, ChordMarksAfterTheFieldsOfTheFileKeepTheirValue) {
    score->PolyArray.write(1, 7, 1);
    read(gridLines("60", "0") + " 70 \r\n" + rowInstruments + "Polyphonics\r\n1,1\r\n");
    EXPECT_EQ(cells(score->PolyArray, 1, 0, 7), "1,1,0,0,0,0,0,1");
}

TEST_F(ScoreReaderTest, NulBytesAfterTheLastLineAreTheIgnoredHeaderLine) {
    score->PolyArray.write(1, 7, 1);
    read(gridLines("60", "0") + " 70 \r\n" + rowInstruments + std::string(3, '\0'));
    EXPECT_EQ(score->RowInstrument[0], 24);
    EXPECT_EQ(score->PolyArray.at(1, 0), 0);
    EXPECT_EQ(score->PolyArray.at(1, 7), 1);
}

TEST_F(ScoreReaderTest, FieldsAfterColumn1000AreDroppedAndTheRestIsReadNormally) {
    read(gridLines(times(1500, "60,") + "61", times(1500, "24,") + "24") + " 70 \r\n");
    EXPECT_EQ(score->NoteArray.at(0, 1000), 60);
    EXPECT_EQ(score->NoteArray.at(1, 0), -1);
    EXPECT_EQ(score->Tempo, 70);
}

TEST_F(ScoreReaderTest, FileThatEndsEarlyKeepsWhatWasRead) {
    score->RowInstrument.fill(9);
    read("60,61\r\n24,24\r\n70,7");
    EXPECT_EQ(cells(score->NoteArray, 0, 0, 2), "60,61,-1");
    EXPECT_EQ(cells(score->NoteArray, 1, 0, 2), "70,7,-1");
    EXPECT_EQ(cells(score->InstrumentArray, 1, 0, 1), "0,0");
    EXPECT_EQ(score->RowInstrument[0], 24);
    EXPECT_EQ(score->RowInstrument[1], 0);
}

TEST_F(ScoreReaderTest, MissingFileLeavesBlankGridsAndInstrumentsOf0) {
    score->RowInstrument.fill(9);
    readFrom(nullptr);
    EXPECT_EQ(score->NoteArray.at(0, 0), -1);
    EXPECT_EQ(score->RowInstrument[12], 0);
    EXPECT_EQ(score->Tempo, 100);
}

TEST_F(ScoreReaderTest, LineEndsOfEveryKindGiveTheSameScore) {
    const std::string file = gridLines("60,62", "24,25") + " 70 \r\n" + rowInstruments;
    read(file);
    const std::string whole = scoreText(*score);
    for (const char* lineEnd : {"\n", "\r"}) {
        std::string other;
        for (const char c : file)
            other += c == '\r' ? std::string() : c == '\n' ? lineEnd : std::string(1, c);
        score = std::make_unique<Score>();
        read(other);
        EXPECT_EQ(scoreText(*score), whole);
    }
}

TEST_F(ScoreReaderTest, PercussionIsAnInstrumentOf1OrMoreInRows8To12) {
    const std::string empty = "-1\r\n0\r\n";
    read(times(7, empty) + "60\r\n128\r\n");
    EXPECT_FALSE(hasPercussion) << "row 7";
    read(times(8, empty) + "60\r\n0\r\n");
    EXPECT_FALSE(hasPercussion) << "instrument 0";
    read(times(12, empty) + "60,61\r\n0,1\r\n");
    EXPECT_TRUE(hasPercussion);
}

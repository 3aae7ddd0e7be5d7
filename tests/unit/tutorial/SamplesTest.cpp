// The stored samples: what each holds, and that the MID file is the export of its score.
#include "tutorial/Samples.h"

#include "model/MidiExport.h"
#include "model/RowOptions.h"
#include "model/Score.h"
#include "model/ScoreReader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

namespace velorin {
namespace {

std::string content(const Sample& sample) {
    return {sample.bytes.begin(), sample.bytes.end()};
}

/// The lines of a sample without their line ends, which are all CR LF.
std::vector<std::string> linesOf(const std::string& name) {
    const Sample* sample = findSample(name);
    if (sample == nullptr)
        return {};
    std::vector<std::string> lines;
    std::istringstream text(content(*sample));
    for (std::string line; std::getline(text, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << name;
        lines.push_back(line.substr(0, line.size() - 1));
    }
    return lines;
}

std::vector<int> numbers(const std::string& line) {
    std::vector<int> found;
    std::istringstream text(line);
    for (std::string field; std::getline(text, field, ',');)
        found.push_back(std::stoi(field));
    return found;
}

struct RowOfSample {
    std::size_t columns;
    int instrument;
    bool operator==(const RowOfSample&) const = default;
};
void PrintTo(const RowOfSample& row, std::ostream* out) {
    *out << row.columns << " columns of " << row.instrument;
}
using Rows = std::map<int, RowOfSample>;

/// The rows with notes. A row has one instrument, on its notes alone.
Rows rowsOf(const std::string& name) {
    const std::vector<std::string> lines = linesOf(name);
    EXPECT_EQ(lines.size(), 28U) << name; // the file ends after the row instruments
    Rows rows;
    const std::vector<int> rowInstruments = numbers(lines.at(27));
    EXPECT_EQ(rowInstruments.size(), 13U);
    for (int row = 0; row < 13; ++row) {
        const auto at = static_cast<std::size_t>(row);
        const std::vector<int> cells = numbers(lines[2 * at]);
        const std::vector<int> instruments = numbers(lines[2 * at + 1]);
        EXPECT_EQ(cells.size(), instruments.size());
        if (cells == std::vector<int>{-1})
            continue;
        EXPECT_GE(cells.back(), 0);
        for (std::size_t column = 0; column < cells.size(); ++column)
            EXPECT_EQ(instruments[column], cells[column] < 0 ? 0 : rowInstruments[at]);
        rows[row] = {cells.size(), rowInstruments[at]};
    }
    return rows;
}

TEST(SamplesTest, TwelveFilesAreStored) {
    EXPECT_EQ(storedSamples().size(), 12U);
    for (const char* name : {"101.sng", "102.sng", "103.sng", "104.sng", "105.sng", "201.sng",
                             "202.sng", "203.sng", "104a.sng", "104b.sng", "301.sng", "333.mid"})
        EXPECT_NE(findSample(name), nullptr) << name;
    EXPECT_EQ(findSample("204.sng"), nullptr);
}

TEST(SamplesTest, EachStageOfALessonAddsToTheLast) {
    EXPECT_EQ(rowsOf("101.sng"), (Rows{{0, {37, 24}}}));
    EXPECT_EQ(rowsOf("102.sng"), (Rows{{0, {37, 24}}, {1, {37, 24}}}));
    EXPECT_EQ(rowsOf("104.sng"),
              (Rows{{0, {37, 24}}, {1, {37, 24}}, {2, {37, 24}}, {8, {37, 128}}}));
    EXPECT_EQ(rowsOf("201.sng"), (Rows{{8, {11, 128}}}));
    EXPECT_EQ(rowsOf("202.sng"), (Rows{{8, {11, 128}}, {10, {12, 153}}}));
    EXPECT_EQ(rowsOf("203.sng"), (Rows{{8, {11, 128}}, {10, {12, 153}}, {11, {11, 131}}}));
    EXPECT_EQ(rowsOf("301.sng"), (Rows{{1, {22, 26}}, {8, {22, 132}}}));
    for (int line = 0; line < 2; ++line)
        EXPECT_EQ(linesOf("101.sng")[line], linesOf("104.sng")[line]);
    for (int line = 16; line < 18; ++line)
        EXPECT_EQ(linesOf("201.sng")[line], linesOf("203.sng")[line]);
}

TEST(SamplesTest, TheTemposAreThoseOfTheLessons) {
    for (const char* name : {"101.sng", "102.sng", "103.sng", "104.sng", "105.sng"})
        EXPECT_EQ(linesOf(name).at(26), " 70 ");
    for (const char* name : {"201.sng", "202.sng", "203.sng", "301.sng"})
        EXPECT_EQ(linesOf(name).at(26), " 80 ");
}

TEST(SamplesTest, TheMelodyOfTheFirstLessonIsWrittenOut) {
    EXPECT_EQ(linesOf("101.sng").at(0),
              "60,60,60,60,58,58,58,58,60,60,60,60,62,62,62,62,63,63,63,63,60,1060,1060,58,1058,62,"
              "1062,63,65,67,1067,1067,1067,1067,1067,1067,1067");
}

/// The keys that sound in a column, also held ones, without percussion.
std::vector<int> keysIn(const std::vector<std::string>& lines, std::size_t column) {
    std::vector<int> keys;
    for (std::size_t row = 0; row < 8; ++row) {
        const std::vector<int> cells = numbers(lines.at(2 * row));
        if (column < cells.size() && cells[column] >= 0)
            keys.push_back(127 - cells[column] % 1000);
    }
    return keys;
}

TEST(SamplesTest, NoTwoVoicesAreASemitoneOrATritoneApart) {
    const std::vector<std::string> lines = linesOf("105.sng"); // the last stage, with every voice
    for (std::size_t column = 0; column < 37; ++column) {
        const std::vector<int> keys = keysIn(lines, column);
        EXPECT_EQ(keys.size(), 3U);
        for (const int one : keys) {
            for (const int other : keys) {
                const int apart = (one - other + 120) % 12;
                EXPECT_TRUE(apart != 1 && apart != 6 && apart != 11) << "column " << column;
            }
        }
    }
}

TEST(SamplesTest, TheMidFileHasFourteenTracksAtOneSecondAQuarter) {
    const std::string bytes = content(*findSample("333.mid"));
    const std::string head("MThd\0\0\0\6\0\1\0\16\0\60MTrk\0\0\0\23\0\377Q\3\17B@", 29);
    EXPECT_EQ(bytes.substr(0, 29), head);
}

TEST(SamplesTest, TheMidFileIsWhatTheExportWritesForItsScore) {
    const RowOptions setup;
    Score score;
    score.ClearNoteArrays();
    std::ifstream file(VELORIN_SAMPLES "/333.sng", std::ios::binary);
    ASSERT_TRUE(file);
    ScoreReader reader(&file, score);
    reader.readRows();
    reader.readTempo();
    EXPECT_EQ(score.Tempo, 60);
    EXPECT_EQ(midiFileOf(score, setup), content(*findSample("333.mid")));
}

} // namespace
} // namespace velorin

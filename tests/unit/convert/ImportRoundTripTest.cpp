// Scores that are written as MIDI files and imported again.
#include "convert/LoadedScore.h"
#include "convert/PlayedMidiFile.h"
#include "importing/MidiImport.h"
#include "midifile/FileReader.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace velorin::convert {
namespace {

/// Whole numbers, the same in every run.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    /// A number of [low, high].
    int number(int low, int high) {
        return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
    }
    bool oneIn(int count) { return number(1, count) == 1; }

private:
    std::mt19937 engine_;
};

void write(Score& score, int row, int column, int length, int pitch, int instrument) {
    for (int i = 0; i < length; ++i) {
        score.NoteArray.write(row, column + i,
                              static_cast<std::int16_t>(i == 0 ? pitch : heldCell(pitch)));
        score.InstrumentArray.write(row, column + i, static_cast<std::int16_t>(instrument));
    }
}

/// Notes, rests, drums and marks anywhere; the last column that a view shows is the last one used.
void fillAtRandom(Score& score, Dice& dice) {
    score.Tempo = static_cast<std::int16_t>(dice.number(20, 300));
    const int columns = dice.oneIn(3) ? 1000 : dice.number(1, 400);
    for (int row = 0; row < scoreRows; ++row) {
        if (dice.oneIn(4))
            continue;
        const int program = dice.number(0, 127);
        for (int column = dice.number(0, 40); column < columns;) {
            const int length = std::min(dice.number(1, 12), columns - column);
            const int pitch = dice.number(13, 127); // an octave fits above each key
            if (!isMusicRow(row))
                write(score, row, column, length, 56, dice.number(128, 174));
            else
                write(score, row, column, length, pitch,
                      dice.oneIn(8) ? dice.number(0, 127) : program);
            if (isMusicRow(row) && dice.oneIn(5))
                score.PolyArray.write(row + 1, column + 1, 1);
            column += length + (dice.oneIn(2) ? 0 : dice.number(1, 30));
        }
    }
}

std::string midiFileOfPlay(LoadedScore& score, KeptMidi& midi) {
    return playedMidiFile(playToEnd(score, midi), "song");
}

importing::Import importOf(const std::string& bytes) {
    const auto songs = midifile::readAll(
        std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    auto import = importing::importMidi(songs);
    EXPECT_TRUE(import) << import.reason();
    return import ? std::move(*import) : importing::Import();
}

/// The score as another reader opens it.
Score reopened(const Score& score) {
    std::istringstream file(exactText(score));
    Score read;
    ScoreReader reader(&file, read);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    return read;
}

/// Row, column, pitch, instrument and mark of a cell.
using Cell = std::tuple<int, int, int, int, int>;

/// The cells of the melodic rows in order; those of the percussion rows without their rows and
/// lines.
std::vector<Cell> soundingCells(const Score& score) {
    std::vector<Cell> cells;
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const int cell = score.NoteArray.at(row, column);
            if (isEmpty(cell))
                continue;
            const int instrument = score.InstrumentArray.at(row, column);
            const bool isMarked =
                isMusicRow(row) && isStart(cell) && score.PolyArray.at(row + 1, column + 1) == 1;
            cells.emplace_back(isMusicRow(row) ? row : 8, column,
                               isMusicRow(row) ? cell : static_cast<int>(isHeld(cell)), instrument,
                               isMarked ? 1 : 0);
        }
    }
    std::sort(cells.begin(), cells.end());
    return cells;
}

/// What one list has and the other has not: "row 0, column 4: 60, instrument 24".
std::string missing(const std::vector<Cell>& from, const std::vector<Cell>& in) {
    std::vector<Cell> cells;
    std::set_difference(from.begin(), from.end(), in.begin(), in.end(), std::back_inserter(cells));
    std::ostringstream text;
    for (const auto& [row, column, cell, instrument, mark] : cells)
        text << "row " << row << ", column " << column << ": " << cell << ", instrument "
             << instrument << (mark == 1 ? ", marked\n" : "\n");
    return text.str();
}

TEST(ARoundTripThroughMidi, GivesEverySoundingCellBack) {
    const char* given = std::getenv("VELORIN_ROUND_TRIPS");
    const unsigned rounds = given != nullptr ? static_cast<unsigned>(std::atoi(given)) : 60;
    for (unsigned seed = 0; seed < rounds; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        KeptMidi midi;
        LoadedScore score(midi);
        fillAtRandom(score.studio.score, dice);
        const auto expected = soundingCells(score.studio.score);
        if (expected.empty())
            continue;
        const importing::Import import = importOf(midiFileOfPlay(score, midi));
        ASSERT_EQ(import.pieces.size(), 1U);
        const Score back = reopened(import.pieces[0].score);
        const auto cells = soundingCells(back);
        ASSERT_EQ(missing(expected, cells), "");
        ASSERT_EQ(missing(cells, expected), "");
        EXPECT_EQ(back.Tempo, score.studio.score.Tempo);
        EXPECT_EQ(import.account.exact, import.account.notes);
        EXPECT_EQ(import.account.shortened, 0);
    }
}

TEST(ARoundTripThroughMidi, GivesVolumesBack) {
    KeptMidi midi;
    LoadedScore score(midi);
    write(score.studio.score, 0, 0, 4, 60, 10);
    write(score.studio.score, 3, 4, 4, 60, 10);
    write(score.studio.score, 8, 0, 1, 56, 128);
    score.studio.setup.values.options.rows[3].volume = "40";
    score.studio.setup.values.options.rows[8].volume = "90";
    const importing::Import import = importOf(midiFileOfPlay(score, midi));
    EXPECT_EQ(import.pieces[0].volumes[0], 127);
    EXPECT_EQ(import.pieces[0].volumes[3], 40);
    EXPECT_EQ(import.pieces[0].volumes[8], 90);
}

} // namespace
} // namespace velorin::convert

// Reads score files, part by part.
#include "model/ScoreReader.h"

#include "model/Score.h"
#include "platform/Text.h"

#include <algorithm>

namespace velorin {

namespace {

// Rule: a tempo above 300 becomes 300, but one below 20 is kept. Held by score/reading.
constexpr std::int16_t fastestTempo = 300;

} // namespace

void ScoreReader::readRows() {
    for (int row = 0; row < scoreRows; ++row) {
        text_.readFields(scoreColumns, [this, row](int column, std::int16_t cell) {
            score_.NoteArray.write(row, column, cell);
        });
        text_.readFields(scoreColumns, [this, row](int column, std::int16_t instrument) {
            score_.InstrumentArray.write(row, column, instrument);
            hasPercussion_ = hasPercussion_ || (!isMusicRow(row) && instrument >= 1);
        });
    }
}

void ScoreReader::readTempo() {
    FieldText number;
    if (!text_.readNumber(number))
        return;
    if (const auto tempo = platform::readInt16(number.text()))
        score_.Tempo = *tempo;
    score_.Tempo = std::min(score_.Tempo, fastestTempo);
}

void ScoreReader::readRowInstruments() {
    if (text_.atEnd()) {
        for (int row = 0; row < scoreRows; ++row)
            score_.RowInstrument[row] = score_.InstrumentArray.at(row, 0);
        return;
    }
    text_.readFields(scoreRows, [this](int row, std::int16_t instrument) {
        score_.RowInstrument[row] = instrument;
    });
}

// Rule: the writer puts entry i + 1 into field i, and the reader puts field i into entry i. So each
// save and load moves the chord marks one column to the left; the mark of column 0 moves to entry
// 0, which no note uses. Held by score/chord_marks_in_files.
void ScoreReader::readChordMarks() {
    text_.skipLine(); // the word "Polyphonics"
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        text_.readFields(scoreColumns, [this, lane](int entry, std::int16_t mark) {
            score_.PolyArray.write(lane, entry, mark);
        });
    }
}

} // namespace velorin

// Score files as text: numbers and commas, cut behind the last used column of each row.
#include "score/ScoreWriter.h"

#include "score/Score.h"

#include <algorithm>
#include <charconv>

namespace velorin {

namespace {

constexpr const char* lineEnd = "\r\n";

void append(std::string& text, std::int16_t number) {
    char digits[8];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, result.ptr);
}

/// Columns [first, last] of a row of a grid.
template <typename Grid>
void appendLine(std::string& text, const Grid& grid, int row, int first, int last) {
    for (int column = first; column <= last; ++column) {
        if (column > first)
            text += ',';
        append(text, grid.at(row, column));
    }
    text += lineEnd;
}

/// The last column that is written of a row: an empty row has one cell all the same.
int lastWritten(const Score& score, int row) {
    int column = lastGridColumn;
    while (column > 0 && score.NoteArray.at(row, column) == emptyCell)
        --column;
    return column;
}

} // namespace

// The lanes have entries 1 through the longest row's last column plus 1, which the grid does not
// have if that row is full.
std::string scoreText(const Score& score) {
    std::string text;
    int longest = 0;
    for (int row = 0; row < scoreRows; ++row) {
        const int last = lastWritten(score, row);
        longest = std::max(longest, last);
        appendLine(text, score.NoteArray, row, 0, last);
        appendLine(text, score.InstrumentArray, row, 0, last);
    }
    text += ' ';
    append(text, score.Tempo);
    text += ' ';
    text += lineEnd;
    for (std::size_t row = 0; row < score.RowInstrument.size(); ++row) {
        if (row > 0)
            text += ',';
        append(text, score.RowInstrument[row]);
    }
    text += lineEnd;
    text += "Polyphonics";
    text += lineEnd;
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        appendLine(text, score.PolyArray, lane, 1, std::min(longest + 1, lastGridColumn));
    return text;
}

} // namespace velorin

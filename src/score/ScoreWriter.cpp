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

/// Lines 1 to 29. Returns the last column written of the longest row.
int appendSong(std::string& text, const Score& score) {
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
    return longest;
}

/// The last entry of any lane that holds a mark; 0 if none does.
int lastMark(const PolyGrid& marks) {
    int last = 0;
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        for (int entry = lastGridColumn; entry > last; --entry)
            if (marks.at(lane, entry) != 0)
                last = entry;
    return last;
}

} // namespace

// The lanes have entries 1 through the longest row's last column plus 1, which the grid does not
// have if that row is full.
std::string scoreText(const Score& score) {
    std::string text;
    const int last = std::min(appendSong(text, score) + 1, lastGridColumn);
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        appendLine(text, score.PolyArray, lane, 1, last);
    return text;
}

// The reader puts field i into entry i, and so does this writer, so that the marks come back where
// they stood. Entries behind the last note are written too, since marks may wait there for notes.
std::string keptText(const Score& score) {
    std::string text;
    const int longest = appendSong(text, score);
    const int last = std::min(std::max(longest + 1, lastMark(score.PolyArray)), lastGridColumn);
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        appendLine(text, score.PolyArray, lane, 0, last);
    return text;
}

bool isWorthKeeping(const Score& score) {
    for (int row = 0; row < scoreRows; ++row)
        for (int column = 0; column <= lastGridColumn; ++column)
            if (!isEmpty(score.NoteArray.at(row, column)))
                return true;
    return lastMark(score.PolyArray) > 0;
}

} // namespace velorin

// Score files as text: numbers and commas, each row cut after its last used column.
#include "model/ScoreWriter.h"

#include "model/Score.h"

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

/// The last column that is written of a row.
///
/// Rule: an empty row is written as one rest. Held by score/writing.
int lastWritten(const Score& score, int row) {
    int column = lastGridColumn;
    while (column > 0 && score.NoteArray.at(row, column) == emptyCell)
        --column;
    return column;
}

/// The last column of a row that is not as a cleared grid has it; 0 if none is.
int lastWithContent(const Score& score, int row) {
    int column = lastGridColumn;
    while (column > 0 && score.NoteArray.at(row, column) == emptyCell &&
           score.InstrumentArray.at(row, column) == 0)
        --column;
    return column;
}

using LastColumn = int (*)(const Score& score, int row);

/// Appends lines 1 to 29. Returns the last column written of the longest row.
int appendSong(std::string& text, const Score& score, LastColumn lastColumn = lastWritten) {
    int longest = 0;
    for (int row = 0; row < scoreRows; ++row) {
        const int last = lastColumn(score, row);
        longest = std::max(longest, last);
        appendLine(text, score.NoteArray, row, 0, last);
        appendLine(text, score.InstrumentArray, row, 0, last);
    }
    text += ' ';
    append(text, score.Tempo);
    text += ' ';
    text += lineEnd;
    for (int row = 0; row < scoreRows; ++row) {
        if (row > 0)
            text += ',';
        append(text, score.RowInstrument[row]);
    }
    text += lineEnd;
    text += "Polyphonics";
    text += lineEnd;
    return longest;
}

/// The last entry that holds a mark, in any lane; 0 if none does.
int lastMark(const PolyGrid& marks) {
    int last = 0;
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        for (int entry = lastGridColumn; entry > last; --entry)
            if (marks.at(lane, entry) != 0)
                last = entry;
    return last;
}

// Field i is entry i, as the reader expects, so the marks come back in place. Entries after the
// last note are written too: the user may set marks before the notes.
std::string textWithAllMarks(const Score& score, LastColumn lastColumn) {
    std::string text;
    const int longest = appendSong(text, score, lastColumn);
    const int last = std::min(std::max(longest + 1, lastMark(score.PolyArray)), lastGridColumn);
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        appendLine(text, score.PolyArray, lane, 0, last);
    return text;
}

} // namespace

// A lane has entry 1 to the longest row's last column plus 1. If that row is full, the grid has no
// such entry, and the lane ends with entry 1000.
std::string scoreText(const Score& score) {
    std::string text;
    const int last = std::min(appendSong(text, score) + 1, lastGridColumn);
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        appendLine(text, score.PolyArray, lane, 1, last);
    return text;
}

std::string keptText(const Score& score) {
    return textWithAllMarks(score, lastWritten);
}

std::string exactText(const Score& score) {
    return textWithAllMarks(score, lastWithContent);
}

bool isWorthKeeping(const Score& score) {
    for (int row = 0; row < scoreRows; ++row)
        for (int column = 0; column <= lastGridColumn; ++column)
            if (!isEmpty(score.NoteArray.at(row, column)))
                return true;
    return lastMark(score.PolyArray) > 0;
}

} // namespace velorin

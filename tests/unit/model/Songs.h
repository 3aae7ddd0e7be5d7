// Songs in tests: rows of text into the grids, and out of them again.
#pragma once

#include "model/Score.h"

#include <string>

namespace velorin::test {

/// Writes the cells of a row from column 0 on: "60,1060,-1,62". Cells that are not rests get the
/// instrument.
void putRow(Score& score, int row, const std::string& cells, int instrument = 0);

/// Columns [first, last] of a grid's row, joined by commas.
template <typename Grid>
std::string cells(const Grid& grid, int row, int first, int last) {
    std::string text;
    for (int column = first; column <= last; ++column) {
        text += column > first ? "," : "";
        text += std::to_string(grid.at(row, column));
    }
    return text;
}

/// A score file of 26 lines: these two, then twelve empty rows.
std::string gridLines(const std::string& notes, const std::string& instruments);

/// `text` `count` times.
std::string times(int count, const std::string& text);

} // namespace velorin::test

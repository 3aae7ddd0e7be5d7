// Prints the grids of a score as text, and writes notes into them.
#pragma once

#include "model/Cell.h"
#include "model/Score.h"

#include <string>

namespace scripted {

/// Writes a note of `length` columns.
inline void putNote(velorin::Score& score, int row, int column, int pitch, int length,
                    std::int16_t instrument) {
    for (int i = 0; i < length; ++i) {
        const int cell = i == 0 ? pitch : velorin::heldOffset + pitch;
        score.NoteArray.write(row, column + i, static_cast<std::int16_t>(cell));
        score.InstrumentArray.write(row, column + i, instrument);
    }
}

/// The cells of a row from column a to column b: "60 1060 . ." with '.' for an empty one.
template <class CellGrid>
[[nodiscard]] std::string gridText(const CellGrid& grid, int row, int a, int b) {
    std::string text;
    for (int column = a; column <= b; ++column) {
        const auto cell = grid.read(row, column);
        if (column > a)
            text.push_back(' ');
        if (!cell)
            text.append("outside");
        else if (*cell == velorin::emptyCell)
            text.push_back('.');
        else
            text.append(std::to_string(*cell));
    }
    return text;
}

} // namespace scripted

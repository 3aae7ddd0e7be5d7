// The highest and the lowest note of a part of a score.
#pragma once

#include "model/Cell.h"

namespace velorin {

struct Score;

/// Pitch indices count downwards, so the highest note has the lowest number.
struct PitchRange {
    int highest = lastPitch;
    int lowest = -1;

    [[nodiscard]] bool isEmpty() const { return highest > lowest; } ///< there are no notes
};

/// The cells that a range is about; an end is not included.
struct CellBlock {
    int firstRow = 0;
    int endRow = 0;
    int firstColumn = 0;
    int endColumn = 0;
};

/// The range of all cells that are not empty, held ones included. A pitch below the bottom line
/// counts as that line. The block must be inside the grid.
[[nodiscard]] PitchRange pitchRangeOf(const Score& score, const CellBlock& block);

} // namespace velorin

// Which columns and lines of a score a page shows.
#pragma once

namespace velorin {
struct Score;
}

namespace velorin::convert {

constexpr int columnsOfSheetBar = 4;

/// Columns and lines are 12 CSS pixels. The lines of percussion are above the lines of notes.
struct SheetLayout {
    int columns = 1;      ///< up to the last note [1, 1001]
    int topPitch = 0;     ///< pitch index of the first line of notes
    int lines = 1;        ///< of notes, from two above the highest to two below the lowest
    int highestPitch = 0; ///< pitch indices of the highest and the lowest note
    int lowestPitch = 0;
    int stripTopPitch = 0; ///< pitch index of the first line of percussion
    int stripLines = 0;    ///< of percussion; 0 if there is none
};

[[nodiscard]] SheetLayout layoutOf(const Score& score);

} // namespace velorin::convert

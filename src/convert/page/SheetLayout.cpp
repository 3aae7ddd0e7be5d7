// Finds the last column, and the highest and the lowest note.
#include "convert/page/SheetLayout.h"

#include "model/PitchRange.h"
#include "model/Score.h"

#include <algorithm>

namespace velorin::convert {

namespace {

constexpr int marginLines = 2;
constexpr int fewestStripLines = 3; ///< as high as the strip is when the program opens a score
constexpr int mostStripLines = 12;

PitchRange pitchesOf(const Score& score, int firstRow, int endRow) {
    return pitchRangeOf(score, {firstRow, endRow, 0, scoreColumns});
}

int columnsOf(const Score& score) {
    int last = 0;
    for (int row = 0; row < scoreRows; ++row) {
        int column = lastGridColumn;
        while (column > last && isEmpty(score.NoteArray.at(row, column)))
            --column;
        last = column;
    }
    return last + 1;
}

} // namespace

SheetLayout layoutOf(const Score& score) {
    SheetLayout layout;
    layout.columns = columnsOf(score);
    PitchRange notes = pitchesOf(score, 0, firstPercussionRow);
    if (notes.isEmpty())
        notes = {60, 67}; // the octave below the middle of the tableau
    layout.highestPitch = notes.highest;
    layout.lowestPitch = notes.lowest;
    layout.topPitch = std::max(notes.highest - marginLines, 0);
    layout.lines = std::min(notes.lowest + marginLines, lastPitch) - layout.topPitch + 1;
    const PitchRange beats = pitchesOf(score, firstPercussionRow, scoreRows);
    if (beats.isEmpty())
        return layout;
    layout.stripTopPitch = beats.highest;
    layout.stripLines =
        std::clamp(beats.lowest - beats.highest + 1, fewestStripLines, mostStripLines);
    return layout;
}

} // namespace velorin::convert

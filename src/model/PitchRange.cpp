// Looks at all cells of a block.
#include "model/PitchRange.h"

#include "model/Score.h"

#include <algorithm>

namespace velorin {

PitchRange pitchRangeOf(const Score& score, const CellBlock& block) {
    PitchRange found;
    for (int row = block.firstRow; row < block.endRow; ++row) {
        for (int column = block.firstColumn; column < block.endColumn; ++column) {
            const int cell = score.NoteArray.at(row, column);
            if (isEmpty(cell))
                continue;
            const int pitch = std::min(pitchOf(cell), lastPitch);
            found.highest = std::min(found.highest, pitch);
            found.lowest = std::max(found.lowest, pitch);
        }
    }
    return found;
}

} // namespace velorin

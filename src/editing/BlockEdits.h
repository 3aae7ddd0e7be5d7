// Copy, cut, paste and insert: operations on whole columns of the score.
#pragma once

#include "editing/Clipboard.h"

#include <cstdint>

namespace velorin {

struct Studio;

/// Every operation works on all rows that are not hidden. The block is `SelectStart` to
/// `SelectEnd`, both included; paste and insert work at `StartColumn`. Cells that would go past
/// column 1000 are dropped. `History` takes an edit back.
class BlockEdits {
public:
    BlockEdits(Studio& studio) : studio_(studio) {}

    void CopySelectedArea();            ///< into the clipboard; no redraw, the selection stays
    void copyIt();                      ///< the copy command: it drops the selection
    void CutBut_Click();                ///< copies and closes the gap
    void PasteBut_Click();              ///< overwrites at `StartColumn`
    void PasteIntoBut_Click();          ///< opens a gap at `StartColumn` and pastes into it
    void InsertColumnBut_Click();       ///< opens as many columns as `Form2`'s `Text1` says
    void InsertColumns(std::int16_t n); ///< opens n columns at `StartColumn`; no redraw

    /// Rule: copy and paste take chord marks along; cut and insert leave them in place. Held by
    /// editing/copy_and_cut.
    Clipboard clip;

private:
    void closeGap(int row, int width);
    void redraw();

    Studio& studio_;
};

} // namespace velorin

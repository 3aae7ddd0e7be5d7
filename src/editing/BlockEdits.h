// Copy, cut, paste and insert: operations on whole columns of the score.
#pragma once

#include "editing/Clipboard.h"

#include <cstdint>

namespace velorin {

class EditingDesk;
class ScoreDesk;
struct Studio;

/// Every operation takes all rows but the hidden ones, which stay as they are. The block is
/// `SelectStart` to `SelectEnd`, both included; paste and insert work at `StartColumn`. What would
/// fall behind column 1000 is dropped. There is no undo.
class BlockEdits {
public:
    BlockEdits(Studio& studio, ScoreDesk& scoreDesk, EditingDesk& desk)
        : studio_(studio), scoreDesk_(scoreDesk), desk_(desk) {}

    void CopySelectedArea();            ///< into the clipboard; no redraw, the selection stays
    void copyIt();                      ///< the copy command: it drops the selection
    void CutBut_Click();                ///< copies and closes the gap
    void PasteBut_Click();              ///< overwrites at `StartColumn`
    void PasteIntoBut_Click();          ///< opens a gap at `StartColumn` and pastes into it
    void InsertColumnBut_Click();       ///< opens as many columns as `Form2`'s `Text1` says
    void InsertColumns(std::int16_t n); ///< opens n columns at `StartColumn`; no redraw

    /// Chord marks go with copy and paste, by numbers of their own; cut and insert leave them.
    Clipboard clip;

private:
    void closeGap(int row, int width);
    void redraw();

    Studio& studio_;
    ScoreDesk& scoreDesk_;
    EditingDesk& desk_;
};

} // namespace velorin

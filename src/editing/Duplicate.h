// Duplicate: the beginning of the song becomes a pattern that repeats along it.
#pragma once

namespace velorin {

class BlockEdits;
class EditingDesk;
class ScoreCommands;
class ScoreDesk;
struct Studio;

/// The pattern is columns 0..Beats, at least 17 of them; a copy is laid at each multiple of Repeat
/// up to and including Notes. Rows [0, 13); a range of no rows lays nothing.
class Duplicate {
public:
    Duplicate(Studio& studio, BlockEdits& edits, ScoreCommands& commands, ScoreDesk& scoreDesk,
              EditingDesk& desk)
        : studio_(studio), edits_(edits), commands_(commands), scoreDesk_(scoreDesk), desk_(desk) {}

    void CopyNotes(int firstRow, int lastRow); ///< the whole command
    void Command6_Click();                     ///< cuts the song to the pattern, in all rows
    /// Lays the copies of the clipboard from `StartColumn` on, which it leaves behind the last one.
    void DuplicateRepeat(int firstRow, int lastRow);

private:
    /// Returns false if Repeat is 0, so that only one copy could be laid.
    bool layCopies(int firstRow, int lastRow);
    void layCopy(int firstRow, int lastRow);
    void takePattern(int firstRow, int lastRow);
    void hintAtRepeat();
    void redraw();

    Studio& studio_;
    BlockEdits& edits_;
    ScoreCommands& commands_;
    ScoreDesk& scoreDesk_;
    EditingDesk& desk_;
};

} // namespace velorin

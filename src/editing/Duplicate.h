// Duplicate: repeats the beginning of the song as a pattern.
#pragma once

namespace velorin {

class BlockEdits;
class ScoreCommands;
struct Studio;

/// The pattern is columns 0 to Beats, and at least 17 columns. A copy is pasted at each multiple of
/// Repeat up to and including Notes. Rows [0, 13); an empty range of rows pastes nothing.
class Duplicate {
public:
    Duplicate(Studio& studio, BlockEdits& edits, ScoreCommands& commands)
        : studio_(studio), edits_(edits), commands_(commands) {}

    void CopyNotes(int firstRow, int lastRow); ///< the whole command
    void Command6_Click();                     ///< cuts the song to the pattern, in all rows
    /// Pastes the copies of the clipboard from `StartColumn` on, and moves `StartColumn` past the
    /// last one. Called by its name in transcripts only.
    void DuplicateRepeat(int firstRow, int lastRow);

private:
    /// Returns false if Repeat is 0, which allows only one copy.
    bool pasteCopies(int firstRow, int lastRow);
    void pasteCopy(int firstRow, int lastRow);
    void takePattern(int firstRow, int lastRow);
    void hintAtRepeat();
    void redraw();

    Studio& studio_;
    BlockEdits& edits_;
    ScoreCommands& commands_;
};

} // namespace velorin

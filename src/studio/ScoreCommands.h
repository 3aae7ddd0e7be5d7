// The commands that empty the score: clear all, clear to a percussion row, new score, clear the
// chord marks in view.
#pragma once

namespace velorin {

struct Studio;

class ScoreCommands {
public:
    ScoreCommands(Studio& studio) : studio_(studio) {}

    void Command4_Click();  ///< "Clear all"
    void CmdBeatactivate(); ///< the same clear, ending on the first percussion row
    void mNew_Click();      ///< new score
    void Comm2_Click();     ///< clears the chord marks of the columns in view; no redraw

private:
    Studio& studio_;
};

} // namespace velorin

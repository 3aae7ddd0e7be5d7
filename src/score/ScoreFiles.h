// The score file commands: open and save, with their dialogs, and the readers and the writer behind
// them.
#pragma once

#include <string>

namespace velorin {

class ScoreDesk;
struct Studio;

/// None of these reports a failure; they keep what was read, or written, so far.
class ScoreFiles {
public:
    ScoreFiles(Studio& studio, ScoreDesk& desk) : studio_(studio), desk_(desk) {}

    void Command33_Click(); ///< "Open": dialog, then `OpenPoliFile`
    void Command34_Click(); ///< "Save" from the menus
    void mSaveAs_Click();   ///< "Save": dialog, then a score file or a MIDI file

    void OpenFile(const std::string& name);     ///< a score without its chord marks
    void OpenPoliFile(const std::string& name); ///< a score of any stage, chord marks included
    void SaveScoreFile(const std::string& name);
    void ExportMidiFile(const std::string& name); ///< a Standard MIDI File, format 1

private:
    Studio& studio_;
    ScoreDesk& desk_;
};

} // namespace velorin

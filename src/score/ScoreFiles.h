// The score file commands: open and save, with their dialogs, and the readers and the writer behind
// them.
#pragma once

#include <string>

namespace velorin {

class ScoreDesk;
struct Studio;

/// None of these reports a failure; they keep what was read, or written, so far. While a file is
/// replaced its old content lies beside it under its name with ".bak" added; after a save that
/// failed it stays there.
class ScoreFiles {
public:
    ScoreFiles(Studio& studio, ScoreDesk& desk) : studio_(studio), desk_(desk) {}

    void Command33_Click(); ///< "Open": dialog, then `OpenPoliFile`
    void Command34_Click(); ///< "Save" from the menus
    void mSaveAs_Click();   ///< "Save": dialog, then a score file or a MIDI file

    void OpenFile(const std::string& name);     ///< a score without its chord marks
    void OpenPoliFile(const std::string& name); ///< a score of any stage, chord marks included
    void SaveScoreFile(const std::string& name);

    /// A Standard MIDI File, format 1. A file that is there is not made shorter. A new one is made
    /// once for a trial, which yields for 0.2 seconds.
    void ExportMidiFile(const std::string& name);

private:
    void load(const std::string& name, bool withChordMarks);
    void showLoaded();
    bool save(const std::string& name, const std::string& content, bool replaceWhole);

    Studio& studio_;
    ScoreDesk& desk_;
    std::string unfinishedSave_; ///< the file whose last save failed; its copy is the good one
};

} // namespace velorin

// The score file commands: open and save, with their dialogs, and the readers and the writer behind
// them.
#pragma once

#include "platform/WriteError.h"

#include <string>

namespace velorin {

class ScoreDesk;
struct Studio;

/// A load reports no failure and keeps what was read so far. A save or an export that fails leaves
/// the old file as it was, or none, and posts a notice.
class ScoreFiles {
public:
    ScoreFiles(Studio& studio, ScoreDesk& desk) : studio_(studio), desk_(desk) {}

    void Command33_Click(); ///< "Open": dialog, then `OpenPoliFile`
    void Command34_Click(); ///< "Save" from the menus
    void mSaveAs_Click();   ///< "Save": dialog, then a score file or a MIDI file

    /// What "Open" does with the name from its dialog. False if there is no such file.
    [[nodiscard]] bool openChosen(const std::string& name);

    void OpenFile(const std::string& name);     ///< a score without its chord marks
    void OpenPoliFile(const std::string& name); ///< a score of any stage, chord marks included
    /// Makes the name `CurrentFileName`, also when the save fails.
    void SaveScoreFile(const std::string& name);

    /// A Standard MIDI File, format 1. A file that is there is not made shorter. A new one is made
    /// once for a trial, which yields for 0.2 seconds.
    void ExportMidiFile(const std::string& name);

private:
    void load(const std::string& name, bool withChordMarks);
    void showLoaded();
    void reportFailure(const std::string& name, platform::WriteError error);

    Studio& studio_;
    ScoreDesk& desk_;
};

} // namespace velorin

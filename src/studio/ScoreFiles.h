// The score file commands: open, save and export, with their dialogs.
#pragma once

#include "model/RowArray.h"
#include "platform/WriteError.h"

#include <iosfwd>
#include <string>

namespace velorin {

struct Score;
struct Studio;

/// A load reports no failure and keeps what was read so far. A save or an export that fails leaves
/// the old file as it was, or none, and posts a notice.
class ScoreFiles {
public:
    ScoreFiles(Studio& studio) : studio_(studio) {}

    void Command33_Click(); ///< "Open": dialog, then `OpenPoliFile`
    void Command34_Click(); ///< "Save" from the menus
    void mSaveAs_Click();   ///< "Save": dialog, then a score file or a MIDI file

    /// Saves the score under its name, without a dialog. False, and nothing is saved, if it has
    /// none that was opened or saved in this run.
    [[nodiscard]] bool saveAgain();

    /// What "Open" does with the name from its dialog. False if there is no such file.
    [[nodiscard]] bool openChosen(const std::string& name);

    void OpenFile(const std::string& name);     ///< a score without its chord marks
    void OpenPoliFile(const std::string& name); ///< a score of any stage, chord marks included
    /// Puts a score from elsewhere on the tableaux, with its first columns and the middle of its
    /// pitches in view. It has no file: "Save" asks for a name. `volumes` are those of the rows,
    /// 0..127; `origin` is the file it was made of.
    void openUnnamed(const Score& opened, const RowArray<int>& volumes, const std::string& origin);

    /// Puts back a state of the history, which `exactText` wrote, by the reader and the redraw of a
    /// load. The selection and the marker stay. The view moves to `column` (0-based) and to the
    /// line of `pitch`; -1 leaves it where it is.
    void restore(const std::string& text, int column, int pitch);
    /// Rule: the name becomes `CurrentFileName` even if the save fails. Held by score/writing.
    void SaveScoreFile(const std::string& name);

    /// Writes a Standard MIDI File, format 1. If there is no such file, one is created and deleted
    /// as a test, which yields for 0.2 seconds.
    ///
    /// Rule: an existing file is not truncated, so a longer one keeps its old tail. Held by
    /// score/midi_export.
    void ExportMidiFile(const std::string& name);

private:
    void load(const std::string& name, bool withChordMarks);
    [[nodiscard]] bool readScore(std::istream* file, bool withChordMarks);
    void showLoaded();
    void showValues();
    [[nodiscard]] std::string proposedName() const;
    void reportFailure(const std::string& name, platform::WriteError error);

    Studio& studio_;
};

} // namespace velorin

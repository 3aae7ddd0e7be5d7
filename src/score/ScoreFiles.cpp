// Opening and saving: the dialogs, and the order in which a loaded score reaches the windows.
#include "score/ScoreFiles.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Notices.h"
#include "platform/Text.h"
#include "score/FileHelpers.h"
#include "score/MidiExport.h"
#include "score/SaveFailure.h"
#include "score/ScoreDesk.h"
#include "score/ScoreReader.h"
#include "score/ScoreWriter.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <istream>

namespace velorin {

namespace {

const platform::FileDialogRequest openRequest{"Open Score File", "Score Files (*.sng) |*.sng|", 1,
                                              platform::ofnFileMustExist |
                                                  platform::ofnHideReadOnly};

const platform::FileDialogRequest saveRequest{
    "Save music file", "Midi(*.mid)|*.mid|score(*.sng)|*.sng", 1,
    platform::ofnOverwritePrompt | platform::ofnCreatePrompt | platform::ofnHideReadOnly};

/// The pair of the save dialog's filter that stands for MIDI files.
constexpr int midiFilter = 1;

/// A loaded score with percussion makes the percussion strip this small.
constexpr int loadedBeatboxHeightPx = 36;

/// The name as the user left it, without the NUL that some dialogs leave at its end.
std::string savedName(const std::string& answered) {
    std::string name = platform::trimBlanks(answered);
    if (!name.empty() && name.back() == '\0')
        name.pop_back();
    return name;
}

} // namespace

// The file is found under the name that was chosen, and goes by its lower-cased name from then on.
void ScoreFiles::Command33_Click() {
    const auto answer = studio_.platform.dialogs.GetOpenFileNameA(openRequest);
    if (!answer)
        return;
    // A name without a file changes nothing.
    static_cast<void>(openChosen(platform::trimBlanks(answer->name)));
}

bool ScoreFiles::openChosen(const std::string& name) {
    if (name.empty() || !FileExists(studio_.platform, name))
        return false;
    studio_.score.CurrentFileName = platform::lowerCase(name);
    OpenPoliFile(name);
    return true;
}

void ScoreFiles::Command34_Click() {
    mSaveAs_Click();
}

// The filter decides the kind of file, whatever extension the name has. After a cancel the windows
// stay out of the top-most state.
void ScoreFiles::mSaveAs_Click() {
    desk_.leaveTopMost();
    const auto answer = studio_.platform.dialogs.GetSaveFileNameA(saveRequest);
    if (!answer || answer->name.empty())
        return;
    const std::string name = savedName(answer->name);
    if (answer->filterIndex == midiFilter)
        ExportMidiFile(platform::withEnding(name, ".mid"));
    else
        SaveScoreFile(platform::withEnding(name, ".sng"));
    desk_.returnToTopMost();
}

void ScoreFiles::OpenFile(const std::string& name) {
    load(name, false);
}

void ScoreFiles::OpenPoliFile(const std::string& name) {
    load(name, true);
}

// A file that cannot be opened counts as an empty one: the score ends up blank.
void ScoreFiles::load(const std::string& name, bool withChordMarks) {
    studio_.score.ClearNoteArrays();
    if (withChordMarks)
        desk_.DrawPolyTableau();

    const auto file = studio_.platform.files.openForInput(name);
    ScoreReader reader(file.get(), studio_.score);
    reader.readRows();
    if (reader.hasPercussion())
        desk_.setBeatboxHeight(loadedBeatboxHeightPx);
    reader.readTempo();
    reader.readRowInstruments();
    if (withChordMarks)
        reader.readChordMarks();

    showLoaded();
    if (withChordMarks)
        desk_.DrawPolyTableau();
    if (file)
        studio_.saved.setSaved(studio_.score);
}

// The handler of the first list writes what the second list still shows into the row; the second
// then follows, so the loaded instrument, read before either, is the one that stays.
void ScoreFiles::showLoaded() {
    Score& score = studio_.score;
    const int instrument = score.RowInstrument[static_cast<std::size_t>(score.CurrentRow)];
    desk_.setMainCombo1(instrument);
    studio_.setup.setCombo1(instrument);
    studio_.setup.setTempoLabel(std::to_string(score.Tempo));
    studio_.setup.setTempoBar(score.Tempo);

    studio_.view.FirstColumn = 0;
    studio_.view.LastVisibleColumn = studio_.view.VisibleColumns;
    score.StartColumn = 0;
    desk_.DrawNoteArray();
    desk_.DrawBeatArray();
}

// The name stays as it is given; only the open command lower-cases it.
void ScoreFiles::SaveScoreFile(const std::string& name) {
    const auto error = studio_.platform.files.replace(name, scoreText(studio_.score));
    if (error == platform::WriteError::none)
        studio_.saved.setSaved(studio_.score);
    else
        reportFailure(name, error);
    studio_.score.CurrentFileName = name;
}

// A name that cannot be opened for input is tried out by making and deleting it. A file that is
// there is kept, which is how the test falls; so a longer one keeps its old tail behind the new
// bytes.
void ScoreFiles::ExportMidiFile(const std::string& name) {
    const std::string content = midiFileOf(studio_.score, studio_.setup);
    if (!FileExists(studio_.platform, name))
        p_DestroyFile(studio_.platform, name);
    const auto error = studio_.platform.files.overwrite(name, content);
    if (error != platform::WriteError::none)
        reportFailure(name, error);
}

void ScoreFiles::reportFailure(const std::string& name, platform::WriteError error) {
    platform::notify(studio_.platform, saveFailureText(name, error));
}

} // namespace velorin

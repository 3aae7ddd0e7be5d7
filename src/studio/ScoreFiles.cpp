// Opens and saves scores: the dialogs, and the order in which a loaded score reaches the windows.
#include "studio/ScoreFiles.h"

#include "model/MidiExport.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Notices.h"
#include "platform/Text.h"
#include "studio/FileHelpers.h"
#include "studio/MainDesk.h"
#include "studio/SaveFailure.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <algorithm>
#include <cassert>
#include <istream>
#include <sstream>
#include <vector>

namespace velorin {

namespace {

const platform::FileDialogRequest openRequest{"Open Score File", "Score Files (*.sng) |*.sng|", 1,
                                              platform::ofnFileMustExist |
                                                  platform::ofnHideReadOnly};

const platform::FileDialogRequest saveRequest{
    "Save music file", "Midi(*.mid)|*.mid|score(*.sng)|*.sng", 1,
    platform::ofnOverwritePrompt | platform::ofnCreatePrompt | platform::ofnHideReadOnly};

/// The number of the save dialog's MIDI filter, counted from 1.
constexpr int midiFilter = 1;

/// Rule: loading a score with percussion sets the percussion strip to this height. Held by
/// score/reading.
constexpr int loadedBeatboxHeightPx = 36;

/// The name without the blanks around it and without the NUL that some dialogs put at its end.
std::string savedName(const std::string& answered) {
    std::string name = platform::trimBlanks(answered);
    if (!name.empty() && name.back() == '\0')
        name.pop_back();
    return name;
}

/// The pitch index that half of the notes are above; -1 if there are only drums.
int middlePitch(const Score& score) {
    std::vector<int> pitches;
    for (int row = 0; row < musicRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            if (const int cell = score.NoteArray.at(row, column); isStart(cell))
                pitches.push_back(pitchOf(cell));
        }
    }
    if (pitches.empty())
        return -1;
    const auto middle = pitches.begin() + static_cast<std::ptrdiff_t>(pitches.size() / 2);
    std::nth_element(pitches.begin(), middle, pitches.end());
    return *middle;
}

} // namespace

// Rule: the file is opened under the chosen name, but `CurrentFileName` gets it in lower case. Held
// by score/open_and_save_commands.
void ScoreFiles::Command33_Click() {
    const auto answer = studio_.platform.dialogs.GetOpenFileNameA(openRequest);
    if (!answer)
        return;
    // If there is no such file, nothing changes.
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

// After a cancel the windows stay out of the top-most state.
//
// Rule: the dialog's filter decides the kind of file, whatever extension the name has. Held by
// score/open_and_save_commands.
void ScoreFiles::mSaveAs_Click() {
    studio_.desk->leaveTopMost();
    platform::FileDialogRequest request = saveRequest;
    request.proposal = proposedName();
    const auto answer = studio_.platform.dialogs.GetSaveFileNameA(request);
    if (!answer || answer->name.empty())
        return;
    const std::string name = savedName(answer->name);
    if (answer->filterIndex == midiFilter)
        ExportMidiFile(platform::withEnding(name, ".mid"));
    else
        SaveScoreFile(platform::withEnding(name, ".sng"));
    studio_.desk->returnToTopMost();
}

/// The score's file without its ending; empty for a score without a name.
std::string ScoreFiles::proposedName() const {
    std::string name = studio_.saved.fileNamed(studio_.score.CurrentFileName);
    if (name.empty())
        name = studio_.score.CurrentFileName;
    const std::string ending = ".sng";
    if (platform::endsWithIgnoringCase(name, ending))
        name.resize(name.size() - ending.size());
    return name;
}

bool ScoreFiles::saveAgain() {
    const std::string name = studio_.saved.fileNamed(studio_.score.CurrentFileName);
    if (name.empty())
        return false;
    SaveScoreFile(name);
    return true;
}

void ScoreFiles::OpenFile(const std::string& name) {
    load(name, false);
}

void ScoreFiles::OpenPoliFile(const std::string& name) {
    load(name, true);
}

// Rule: a file that cannot be opened counts as an empty one, so the score becomes blank. Held by
// score/reading.
void ScoreFiles::load(const std::string& name, bool withChordMarks) {
    assert(studio_.owner.isCaller());
    studio_.score.ClearNoteArrays();
    if (withChordMarks)
        studio_.desk->DrawPolyTableau();

    const auto file = studio_.platform.files.openForInput(name);
    if (readScore(file.get(), withChordMarks))
        studio_.desk->setBeatboxHeight(loadedBeatboxHeightPx);

    showLoaded();
    if (withChordMarks)
        studio_.desk->DrawPolyTableau();
    studio_.saved.setOpened(studio_.score, name, file != nullptr);
}

/// True if the score has percussion.
bool ScoreFiles::readScore(std::istream* file, bool withChordMarks) {
    ScoreReader reader(file, studio_.score);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    if (withChordMarks)
        reader.readChordMarks();
    return reader.hasPercussion();
}

void ScoreFiles::showLoaded() {
    showValues();
    studio_.view.FirstColumn = 0;
    studio_.view.LastVisibleColumn = studio_.view.VisibleColumns;
    studio_.score.StartColumn = 0;
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
}

// Rule: the main window's list is set first, and its handler gives the row the old instrument of
// the Setup Toolbar's list. That list then follows, so the row ends with the loaded instrument,
// which was read before both. Held by score/reading.
void ScoreFiles::showValues() {
    Score& score = studio_.score;
    const int instrument = score.RowInstrument[score.CurrentRow];
    studio_.desk->setMainCombo1(instrument);
    studio_.setup.setCombo1(instrument);
    studio_.setup.setTempoLabel(std::to_string(score.Tempo));
    studio_.setup.setTempoBar(score.Tempo);
}

void ScoreFiles::openUnnamed(const Score& opened, const RowArray<int>& volumes,
                             const std::string& origin) {
    Score& score = studio_.score;
    score.StartColumn = 0;
    restore(exactText(opened), 0, middlePitch(opened));
    score.CurrentFileName.clear();
    studio_.saved.setOpened(score, origin, false);
    for (int row = 0; row < scoreRows; ++row) {
        if (studio_.setup.vol(row))
            studio_.setup.setVol(row, std::to_string(volumes[row]));
    }
}

// The strip keeps its height if it is open wide enough; else beats that come back could be hidden.
void ScoreFiles::restore(const std::string& text, int column, int pitch) {
    Score& score = studio_.score;
    score.ClearNoteArrays();
    score.ClearPolies();
    std::istringstream file(text);
    if (readScore(&file, true) && studio_.desk->beatboxHeight() < loadedBeatboxHeightPx)
        studio_.desk->setBeatboxHeight(loadedBeatboxHeightPx);
    showValues();
    studio_.desk->moveViewTo(column, pitch);
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
    studio_.desk->DrawPolyTableau();
}

// The name stays as given; only the open command puts it into lower case.
void ScoreFiles::SaveScoreFile(const std::string& name) {
    assert(studio_.owner.isCaller());
    const auto error = studio_.platform.files.replace(name, scoreText(studio_.score));
    if (error == platform::WriteError::none)
        studio_.saved.setSaved(studio_.score, name);
    else
        reportFailure(name, error);
    studio_.score.CurrentFileName = name;
}

// Only a file that does not exist yet is created and deleted. An existing file is overwritten in
// place, so a longer one keeps its old tail after the new bytes.
void ScoreFiles::ExportMidiFile(const std::string& name) {
    assert(studio_.owner.isCaller());
    const std::string content = midiFileOf(studio_.score, studio_.setup.options());
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

// How a pass walks through its columns, and how passes begin inside one another.
//
//     enter ──> column by column ──┬─ end of song ──> one more column's wait ──> finish
//                   ^              ├─ pause ────────> returned
//                   │              └─ looping ──────> wait for an inner pass, entered again
//                   └──── goes on after it ─────────────────────┘
//
// Rule: a looping song with the marker on begins each further pass inside the one before, and each
// of them has its own end steps. Held by playback/loops.
//
// Passes are counted in `WaitingPasses` instead of being nested calls, so the stack does not grow
// while a song loops for days.
#include "playback/Sequencer.h"

#include "platform/MessageLoop.h"
#include "playback/NoteSounding.h"
#include "playback/StopWatch.h"
#include "studio/MainDesk.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <cassert>
#include <limits>

namespace velorin {

namespace {

constexpr std::int16_t noInstrument = -1; ///< of a row that has started no note yet

} // namespace

void Sequencer::PlayAndStop_Click(int index) {
    studio_.platform.loop.runHandler(nullptr, [this, index] { playOrStop(index); });
}

// Rule: a stop does not clear `PauseFlag`, so after a pause the next play goes on at the marker.
// Held by playback/stop_and_pause.
void Sequencer::playOrStop(int index) {
    assert(studio_.owner.isCaller());
    if (index != 0) {
        EnableControls();
        studio_.run.IsPlaying = flagClear;
        return;
    }
    if (studio_.run.IsPlaying.isSet())
        return;
    studio_.run.IsPlaying = flagSet;
    DisableControls();
    if (yield())
        PlaySong2();
}

void Sequencer::RewindBut_Click() {
    if (studio_.run.IsPlaying.isSet())
        return;
    View& view = studio_.view;
    studio_.desk->clearMusicBox();
    view.FirstColumn = 0;
    view.LastVisibleColumn = view.VisibleColumns;
    studio_.score.StartColumn = 0;
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
    studio_.desk->setHScroll1(view.ColumnScrollBias);
}

void Sequencer::PlaySong2() {
    play(Pass::song);
}

void Sequencer::PlaySelection() {
    studio_.platform.loop.runHandler(nullptr, [this] { play(Pass::selection); });
}

void Sequencer::FindLastColumn() {
    studio_.score.FindLastColumn(studio_.setup.options());
}

// The tool windows stay usable, since they have Pause, Stop and the row options.
void Sequencer::DisableControls() {
    studio_.desk->enableWizard(false);
    studio_.desk->enableTableaux(false);
}

void Sequencer::EnableControls() {
    studio_.desk->enableToolbars();
    studio_.desk->enableWizard(true);
    studio_.desk->enableTableaux(true);
}

void Sequencer::AdvancePlayPosition() {
    if (stepColumn())
        play(nextPass());
    studio_.platform.loop.Yield();
}

void Sequencer::play(Pass pass) {
    assert(studio_.owner.isCaller());
    WaitingPasses waiting;
    Walk walked = enter(pass);
    while (walked != Walk::programEnds) {
        if (walked == Walk::startsOver) {
            waiting.push(pass);
            pass = nextPass();
            walked = enter(pass);
            continue;
        }
        if (walked == Walk::finished)
            finish(pass);
        if (waiting.empty())
            return;
        pass = waiting.pop();
        walked = continueAfterInnerPass();
    }
}

// If the stopwatch does not start, the song is over at once, without the wait of a last column.
Sequencer::Walk Sequencer::enter(Pass pass) {
    if (pass == Pass::song)
        enterSong();
    else if (!enterSelection())
        return Walk::returned;
    LastCell.fill(emptyCell);
    LastInstrument.fill(noInstrument);
    if (pass == Pass::song)
        FindLastColumn();
    else
        studio_.score.LastColumn = studio_.run.PlayBlockEnd;
    computeColumnTime();
    return watch_.StopWatchStart(PlayTimer) == 0 ? Walk::finished : walk();
}

// Rule: only a start from a pause begins at the marker. Any other start begins at column 0,
// wherever the marker is. Held by playback/stop_and_pause.
void Sequencer::enterSong() {
    Run& run = studio_.run;
    showStartColumn();
    run.PlayColumn = run.PauseFlag.isMinusOne() ? studio_.score.StartColumn : std::int16_t{0};
    run.PauseFlag = flagClear;
    prepareMarker();
}

bool Sequencer::enterSelection() {
    Run& run = studio_.run;
    if (run.PlayBlockEnd < 1 || run.PlayBlockEnd - run.PlayBlockStart < 1)
        return false;
    run.PauseFlag = flagClear;
    run.PlayingSelection = flagSet;
    showStartColumn();
    run.PlayColumn = run.PlayBlockStart;
    prepareMarker();
    return true;
}

// The view moves to the position marker, even if the play begins elsewhere. The first page turn
// brings it to the play column.
void Sequencer::showStartColumn() {
    View& view = studio_.view;
    const std::int16_t start = studio_.score.StartColumn;
    if (start < view.FirstColumn || start > view.LastVisibleColumn)
        showFromColumn(view, start);
}

void Sequencer::prepareMarker() {
    studio_.desk->GetColumn(0);
    studio_.desk->setHScroll1(studio_.view.FirstColumn + studio_.view.ColumnScrollBias);
    studio_.run.MarkerSaved = flagClear;
    studio_.view.ViewChanged = flagClear;
    studio_.desk->DrawNoteArray();
}

// 12 / tempo seconds: 40 ms at tempo 300. A tempo of 0, which only a file can have, keeps the time
// of the play before.
//
// Rule: a change of the tempo while the song plays takes effect at the next start. Held by
// playback/changes_while_playing.
void Sequencer::computeColumnTime() {
    const int tempo = studio_.score.Tempo;
    if (tempo != 0)
        ColumnTime = static_cast<float>(300.0 / tempo * 0.04);
}

// Rule: the wait is measured from its own start, and there is no catch-up. So a strummed column
// makes the song longer. Held by playback/changes_while_playing.
Sequencer::Walk Sequencer::walk() {
    while (studio_.run.IsPlaying.isSet()) {
        watch_.WaitSeconds(PlayTimer, ColumnTime);
        if (studio_.platform.loop.isEnding())
            return Walk::programEnds;
        if (studio_.run.PauseFlag.isMinusOne()) {
            pause();
            return Walk::returned;
        }
        PlayNotes();
        if (stepColumn())
            return Walk::startsOver;
        if (!endColumn())
            return Walk::programEnds;
    }
    watch_.WaitSeconds(PlayTimer, ColumnTime); // the length of the last column
    return studio_.platform.loop.isEnding() ? Walk::programEnds : Walk::finished;
}

Sequencer::Walk Sequencer::continueAfterInnerPass() {
    return endColumn() ? walk() : Walk::programEnds;
}

// Rule: a pause ends no notes, and the next start does not end them either. Held by
// playback/stop_and_pause.
void Sequencer::pause() {
    EnableControls();
    studio_.run.IsPlaying = flagClear;
    studio_.score.StartColumn = studio_.run.PlayColumn;
    studio_.desk->DrawNoteArray();
}

// True if the song begins again with a pass inside this one.
//
// Rule: with the marker on, that pass sets `IsPlaying` again, so a stop in the last column of a
// looping song is lost. Held by playback/loops.
bool Sequencer::stepColumn() {
    display_.moveMarker();
    Run& run = studio_.run;
    if (run.PlayColumn < std::numeric_limits<std::int16_t>::max())
        ++run.PlayColumn;
    if (run.PlayColumn <= studio_.score.LastColumn)
        return false;
    if (!run.LoopSong.isSet()) {
        run.IsPlaying = flagClear;
        return false;
    }
    if (run.ShowNotePosition.isMinusOne()) {
        run.IsPlaying = flagSet;
        return true;
    }
    run.PlayColumn = 0;
    return false;
}

Pass Sequencer::nextPass() const {
    return studio_.run.PlayingSelection.isSet() ? Pass::selection : Pass::song;
}

// False if the program ends.
bool Sequencer::endColumn() {
    if (!yield())
        return false;
    if (studio_.run.RecordToolbarOpen.isSet())
        showProgress();
    return yield();
}

// False if the program ends.
bool Sequencer::yield() {
    studio_.platform.loop.Yield();
    return !studio_.platform.loop.isEnding();
}

void Sequencer::finish(Pass pass) {
    endLastNotes();
    if (studio_.run.RecordToolbarOpen.isSet())
        studio_.desk->endProgress();
    if (pass == Pass::song)
        clearMarks();
    studio_.desk->DrawNoteArray();
    finishRecording();
    if (studio_.platform.loop.isEnding())
        return;
    if (pass == Pass::selection)
        studio_.run.PlayingSelection = flagClear;
    EnableControls();
    if (pass == Pass::song)
        studio_.run.ProgressCount = 0;
}

// Rule: the end of a song drops the selection and resets the marker; the end of a block keeps both.
// Held by playback/selections and the unit test Song.ItsEndTakesTheSelectionAndTheMarkerAway.
void Sequencer::clearMarks() {
    Score& score = studio_.score;
    score.dropSelection();
    score.StartColumn = 0;
    studio_.run.PlayBlockStart = 0;
    studio_.run.PlayBlockEnd = 0;
}

// Ending the capture may take long and processes events meanwhile, also the exit command.
void Sequencer::finishRecording() {
    if (!studio_.run.RecordingFlag.isSet())
        return;
    studio_.run.RecordingFlag = flagClear;
    studio_.desk->Recordcontrol();
}

} // namespace velorin

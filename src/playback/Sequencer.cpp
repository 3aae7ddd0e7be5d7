// The walk of a pass through its columns, and how passes begin inside one another.
//
//     enter ──> column by column ──┬─ end of song ──> one more column's wait ──> finish
//                   ^              ├─ pause ────────> returned
//                   │              └─ looping ──────> wait for a pass inside, entered anew
//                   └──── goes on behind it ────────────────────┘
//
// A looping song with the marker on begins each further pass inside the one before, and each of
// them has its own last steps. They are counted in `WaitingPasses` instead of being nested calls,
// so that the stack of a song that loops for days stays as high as after its first pass.
#include "playback/Sequencer.h"

#include "platform/MessageLoop.h"
#include "playback/NoteSounding.h"
#include "playback/PlaybackDesk.h"
#include "playback/StopWatch.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <limits>

namespace velorin {

namespace {

constexpr std::int16_t noInstrument = -1; ///< of a row that has begun no note yet

} // namespace

void Sequencer::PlayAndStop_Click(int index) {
    if (index != 0) {
        EnableControls();
        studio_.run.IsPlaying = flagClear;
        return;
    }
    if (studio_.run.IsPlaying != flagClear)
        return;
    studio_.run.IsPlaying = flagSet;
    DisableControls();
    if (yield())
        PlaySong2();
}

void Sequencer::RewindBut_Click() {
    if (studio_.run.IsPlaying != flagClear)
        return;
    View& view = studio_.view;
    desk_.clearMusicBox();
    view.FirstColumn = 0;
    view.LastVisibleColumn = view.VisibleColumns;
    studio_.score.StartColumn = 0;
    desk_.DrawNoteArray();
    desk_.DrawBeatArray();
    desk_.setHScroll1(view.ColumnScrollBias);
}

void Sequencer::PlaySong2() {
    play(Pass::song);
}

void Sequencer::PlaySelection() {
    play(Pass::selection);
}

void Sequencer::FindLastColumn() {
    studio_.score.FindLastColumn(studio_.setup);
}

// The tool windows stay usable: Pause, Stop and the row options are there.
void Sequencer::DisableControls() {
    desk_.enableWizard(false);
    desk_.enableTableaux(false);
}

void Sequencer::EnableControls() {
    desk_.enableToolbars();
    desk_.enableWizard(true);
    desk_.enableTableaux(true);
}

void Sequencer::AdvancePlayPosition() {
    if (stepColumn())
        play(nextPass());
    studio_.platform.loop.Yield();
}

void Sequencer::play(Pass pass) {
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
        walked = goOnBehindInnerPass();
    }
}

// A song whose stopwatch does not start is over at once, without the time of a last column.
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

// Only a start from a pause begins at the marker; any other begins at column 0, wherever it stands.
void Sequencer::enterSong() {
    Run& run = studio_.run;
    showStartColumn();
    run.PlayColumn = run.PauseFlag == flagSet ? studio_.score.StartColumn : std::int16_t{0};
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

// The view follows the position marker also where the play begins elsewhere: the first page turn
// brings it to the play column.
void Sequencer::showStartColumn() {
    View& view = studio_.view;
    const std::int16_t start = studio_.score.StartColumn;
    if (start < view.FirstColumn || start > view.LastVisibleColumn)
        showFromColumn(view, start);
}

void Sequencer::prepareMarker() {
    desk_.GetColumn(0);
    desk_.setHScroll1(studio_.view.FirstColumn + studio_.view.ColumnScrollBias);
    studio_.run.MarkerSaved = flagClear;
    studio_.view.ViewChanged = flagClear;
    desk_.DrawNoteArray();
}

// 12 / tempo: 40 ms at tempo 300. A tempo of 0, which only a file can bring, leaves the time of the
// play before.
void Sequencer::computeColumnTime() {
    const int tempo = studio_.score.Tempo;
    if (tempo != 0)
        ColumnTime = static_cast<float>(300.0 / tempo * 0.04);
}

// The wait counts from its own beginning: what sounding and drawing have taken comes on top, so a
// strummed column makes the song later and never tighter.
Sequencer::Walk Sequencer::walk() {
    while (studio_.run.IsPlaying != flagClear) {
        watch_.WaitSeconds(PlayTimer, ColumnTime);
        if (studio_.platform.loop.isEnding())
            return Walk::programEnds;
        if (studio_.run.PauseFlag == flagSet) {
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

Sequencer::Walk Sequencer::goOnBehindInnerPass() {
    return endColumn() ? walk() : Walk::programEnds;
}

// What sounds goes on sounding, and the next start does not know of it.
void Sequencer::pause() {
    EnableControls();
    studio_.run.IsPlaying = flagClear;
    studio_.score.StartColumn = studio_.run.PlayColumn;
    desk_.DrawNoteArray();
}

// True if the song begins again with a pass inside this one.
bool Sequencer::stepColumn() {
    display_.moveMarker();
    Run& run = studio_.run;
    if (run.PlayColumn < std::numeric_limits<std::int16_t>::max())
        ++run.PlayColumn;
    if (run.PlayColumn <= studio_.score.LastColumn)
        return false;
    if (run.LoopSong == flagClear) {
        run.IsPlaying = flagClear;
        return false;
    }
    if (run.ShowNotePosition == flagSet) {
        run.IsPlaying = flagSet;
        return true;
    }
    run.PlayColumn = 0;
    return false;
}

Pass Sequencer::nextPass() const {
    return studio_.run.PlayingSelection != flagClear ? Pass::selection : Pass::song;
}

// False if the program ends.
bool Sequencer::endColumn() {
    if (!yield())
        return false;
    if (studio_.run.RecordToolbarOpen != flagClear)
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
    if (studio_.run.RecordToolbarOpen != flagClear)
        desk_.endProgress();
    if (pass == Pass::song)
        clearMarks();
    desk_.DrawNoteArray();
    finishRecording();
    if (studio_.platform.loop.isEnding())
        return;
    if (pass == Pass::selection)
        studio_.run.PlayingSelection = flagClear;
    EnableControls();
    if (pass == Pass::song)
        studio_.run.ProgressCount = 0;
}

// A song that has run out takes the selection and the marker with it; a block keeps them.
void Sequencer::clearMarks() {
    Score& score = studio_.score;
    score.dropSelection();
    score.StartColumn = 0;
    studio_.run.PlayBlockStart = 0;
    studio_.run.PlayBlockEnd = 0;
}

// Ending the capture may take long and serves events meanwhile, the exit among them.
void Sequencer::finishRecording() {
    if (studio_.run.RecordingFlag == flagClear)
        return;
    studio_.run.RecordingFlag = flagClear;
    desk_.Recordcontrol();
}

} // namespace velorin

// The commands that empty the score, each in its own order of steps.
#include "score/ScoreCommands.h"

#include "score/ScoreDesk.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

namespace velorin {

namespace {

constexpr int startTempo = 100;
constexpr const char* fullVolume = "127";
constexpr int activeBeatboxHeightPx = 48; ///< four lines of beats

/// Selecting an option that is set already would run no handler; the clear commands need it run,
/// and run once.
void selectRow(SetupControls& setup, int row) {
    if (setup.TrackSel(row))
        setup.TrackSel_Click(row);
    else
        setup.setTrackSel(row, true);
}

void resetVolumes(SetupControls& setup) {
    for (int row = 0; row < scoreRows; ++row)
        setup.setVol(row, fullVolume);
}

void clearMarks(Score& score) {
    score.dropSelection();
    score.StartColumn = 0;
}

void makeActive(Studio& studio, int row) {
    studio.score.CurrentRow = static_cast<std::int16_t>(row);
    studio.view.DrawColor = studio.view.ChannelColor[static_cast<std::size_t>(row)];
    studio.score.StartColumn = 0;
}

/// `FirstColumn` follows through the scroll bar's own handler, which does not redraw meanwhile.
void scrollToStart(Studio& studio, ScoreDesk& desk) {
    studio.view.PlayerScroll = flagSet;
    desk.setHScroll1(desk.HScroll1Min());
    studio.view.PlayerScroll = flagClear;
}

} // namespace

void ScoreCommands::Command4_Click() {
    Score& score = studio_.score;
    score.CurrentFileName.clear();
    clearMarks(score);
    score.ClearNoteArrays();

    if (studio_.run.Form3Open != flagClear) {
        SetupControls& setup = studio_.setup;
        selectRow(setup, 0);
        for (int row = 0; row < scoreRows; ++row) {
            setup.setCh(row, false);
            setup.setChkstrum(row, false);
            setup.setVol(row, fullVolume);
        }
        setup.showFirstTab();
        setup.setTempoBar(startTempo);
        score.Tempo = startTempo;
        setup.setTrackSel(0, true);
    }

    makeActive(studio_, 0);
    scrollToStart(studio_, desk_);
    desk_.DrawNoteArray();
    desk_.DrawBeatArray();
    desk_.focusMusicBox();
}

// It leaves the tempo and the chord boxes alone, unlike the clear above.
void ScoreCommands::CmdBeatactivate() {
    desk_.setBeatboxHeight(activeBeatboxHeightPx);
    Score& score = studio_.score;
    clearMarks(score);
    score.CurrentFileName.clear();
    score.ClearNoteArrays();

    if (studio_.run.Form3Open != flagClear) {
        SetupControls& setup = studio_.setup;
        selectRow(setup, firstPercussionRow);
        resetVolumes(setup);
        setup.showFirstTab();
    }

    makeActive(studio_, firstPercussionRow);
    scrollToStart(studio_, desk_);
    desk_.DrawNoteArray();
    desk_.DrawBeatArray();
    desk_.focusBeatbox();
}

// The selected row cannot be hidden, so its box is locked again behind the others. The selection
// and the chord marks stay.
void ScoreCommands::mNew_Click() {
    Score& score = studio_.score;
    SetupControls& setup = studio_.setup;
    score.CurrentFileName.clear();
    score.ClearNoteArrays();

    for (int row = 0; row < scoreRows; ++row) {
        desk_.enableMainTrackSel(row, true);
        setup.enableTrackHide(row, true);
        setup.setTrackHide(row, false);
        score.RowInstrument[static_cast<std::size_t>(row)] = 0;
    }

    setup.setTrackSel(0, true);
    setup.enableTrackHide(0, false);
    desk_.ChangeInstrument(0, 0);
    setup.setCombo1(0);
    studio_.view.DrawColor = studio_.view.ChannelColor[0];
    score.StartColumn = 0;

    scrollToStart(studio_, desk_);
    desk_.DrawNoteArray();
    desk_.focusMusicBox();
    desk_.DrawPolyTableau();
}

// The lanes' entries are addressed by the column itself here, one to the left of the marks that the
// tableau shows; so the mark of the last visible column stays.
void ScoreCommands::Comm2_Click() {
    const int first = studio_.view.FirstColumn;
    const int last = first + studio_.view.VisibleColumns;
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        for (int column = first; column <= last; ++column)
            studio_.score.PolyArray.write(lane, column, 0);
    }
}

} // namespace velorin

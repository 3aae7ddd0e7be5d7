// The commands that empty the score, each in its own order of steps.
#include "studio/ScoreCommands.h"

#include "studio/MainDesk.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

namespace velorin {

namespace {

constexpr int startTempo = 100;
constexpr const char* fullVolume = "127";
constexpr int activeBeatboxHeightPx = 48; ///< four lines of beats

/// Rule: a clear command runs the row's selection handler once, also if the row is selected
/// already. Held by score/clear_all.
void selectRow(Setup& setup, int row) {
    if (setup.TrackSel(row))
        setup.TrackSel_Click(row);
    else
        setup.setTrackSel(row, true);
}

void resetVolumes(Setup& setup) {
    for (int row = 0; row < scoreRows; ++row)
        setup.setVol(row, fullVolume);
}

void clearMarks(Score& score) {
    score.dropSelection();
    score.StartColumn = 0;
}

void makeActive(Studio& studio, int row) {
    studio.score.CurrentRow = static_cast<std::int16_t>(row);
    studio.view.DrawColor = studio.view.ChannelColor[row];
    studio.score.StartColumn = 0;
}

/// The scroll bar's handler sets `FirstColumn`; `PlayerScroll` keeps it from redrawing.
void scrollToStart(Studio& studio) {
    studio.view.PlayerScroll = flagSet;
    studio.desk->setHScroll1(studio.desk->HScroll1Min());
    studio.view.PlayerScroll = flagClear;
}

} // namespace

// Rule: "Clear all" leaves hidden rows hidden and keeps the chord marks. Held by score/clear_all.
void ScoreCommands::Command4_Click() {
    Score& score = studio_.score;
    score.CurrentFileName.clear();
    clearMarks(score);
    score.ClearNoteArrays();

    if (studio_.run.Form3Open.isSet()) {
        Setup& setup = studio_.setup;
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
    scrollToStart(studio_);
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
    studio_.desk->focusMusicBox();
}

// Rule: unlike "Clear all", it keeps the tempo and the chord boxes. Held by
// score/clear_to_percussion.
void ScoreCommands::CmdBeatactivate() {
    studio_.desk->setBeatboxHeight(activeBeatboxHeightPx);
    Score& score = studio_.score;
    clearMarks(score);
    score.CurrentFileName.clear();
    score.ClearNoteArrays();

    if (studio_.run.Form3Open.isSet()) {
        Setup& setup = studio_.setup;
        selectRow(setup, firstPercussionRow);
        resetVolumes(setup);
        setup.showFirstTab();
    }

    makeActive(studio_, firstPercussionRow);
    scrollToStart(studio_);
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
    studio_.desk->focusBeatbox();
}

// The selected row cannot be hidden, so its box is disabled again after the loop. The selection
// stays.
//
// Rule: a new score keeps the chord marks. Held by score/new_score.
void ScoreCommands::mNew_Click() {
    Score& score = studio_.score;
    Setup& setup = studio_.setup;
    score.CurrentFileName.clear();
    score.ClearNoteArrays();

    for (int row = 0; row < scoreRows; ++row) {
        studio_.desk->enableMainTrackSel(row, true);
        setup.enableTrackHide(row, true);
        setup.setTrackHide(row, false);
        score.RowInstrument[row] = 0;
    }

    setup.setTrackSel(0, true);
    setup.enableTrackHide(0, false);
    studio_.desk->ChangeInstrument(0, 0);
    setup.setCombo1(0);
    studio_.view.DrawColor = studio_.view.ChannelColor[0];
    score.StartColumn = 0;

    scrollToStart(studio_);
    studio_.desk->DrawNoteArray();
    studio_.desk->focusMusicBox();
    studio_.desk->DrawPolyTableau();
}

// Rule: entries are addressed by the column, one to the left of the marks that the tableau shows.
// So the mark of the last visible column stays. Held by score/clearing.
void ScoreCommands::Comm2_Click() {
    const int first = studio_.view.FirstColumn;
    const int last = first + studio_.view.VisibleColumns;
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        for (int column = first; column <= last; ++column)
            studio_.score.PolyArray.write(lane, column, 0);
    }
}

} // namespace velorin

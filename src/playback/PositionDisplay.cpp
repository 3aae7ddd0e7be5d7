// Where the marker stands, and when the page turns:
//
//     offset   0   1   2  ...  VisibleColumns          VisibleColumns + 1
//              |marker walks in place        |          turns the page: the play column comes to
//                                                       the left edge, the offset is 0 again
//
// On the last page the play column need not be the left one, and the marker starts behind it.
#include "playback/PositionDisplay.h"

#include "platform/Text.h"
#include "playback/PlaybackDesk.h"
#include "score/Studio.h"

namespace velorin {

void showFromColumn(View& view, std::int16_t column) {
    view.FirstColumn = column;
    const auto last = platform::toInt16(column + view.VisibleColumns);
    if (last)
        view.LastVisibleColumn = *last;
    const auto limit = platform::toInt16(lastShownColumn - view.VisibleColumns);
    if (limit && view.FirstColumn > *limit) {
        view.FirstColumn = *limit;
        view.LastVisibleColumn = lastShownColumn;
    }
}

// A strip is put back only where it was taken: not behind the page that is shown, and not if the
// tableau was drawn anew meanwhile. The first step of a play finds nothing saved.
void PositionDisplay::moveMarker() {
    Run& run = studio_.run;
    View& view = studio_.view;
    if (run.MarkerSaved == flagClear)
        drawsAtSave_ = desk_.musicDraws(); // the first step of a play counts from itself
    if (isStripGood())
        desk_.PutColumn(run.MarkerOffset);
    else
        run.MarkerSaved = flagSet;
    view.ViewChanged = flagClear;
    if (run.ShowNotePosition != flagSet)
        return;
    const auto offset = platform::toInt16(run.PlayColumn - view.FirstColumn);
    if (offset)
        run.MarkerOffset = *offset;
    if (run.MarkerOffset > view.VisibleColumns)
        turnPage();
    desk_.GetColumn(run.MarkerOffset);
    drawsAtSave_ = desk_.musicDraws();
    desk_.drawPlayMarker(run.MarkerOffset);
}

// What drew the tableau whole has taken the marker away with it, and the strip shows what was there
// before: a score that was cleared meanwhile, a row that was hidden.
bool PositionDisplay::isStripGood() const {
    return studio_.run.MarkerOffset < studio_.view.VisibleColumns &&
           studio_.run.MarkerSaved != flagClear && studio_.view.ViewChanged == flagClear &&
           desk_.musicDraws() == drawsAtSave_;
}

void PositionDisplay::turnPage() {
    View& view = studio_.view;
    showFromColumn(view, studio_.run.PlayColumn);
    studio_.run.MarkerOffset = 0;
    view.PlayerScroll = flagSet;
    desk_.setHScroll1(view.FirstColumn + view.ColumnScrollBias);
    view.PlayerScroll = flagClear;
    desk_.DrawNoteArray();
    desk_.DrawBeatArray();
    view.ViewChanged = flagClear;
}

} // namespace velorin

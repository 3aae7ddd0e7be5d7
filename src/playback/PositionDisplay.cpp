// Where the marker is, and when the page turns:
//
//     offset   0   1   2  ...  VisibleColumns          VisibleColumns + 1
//              |marker walks in place        |          turns the page: the play column comes to
//                                                       the left edge, the offset is 0 again
//
// Rule: on the last page the play column may be further right, but the marker first appears at the
// left edge all the same. Held by playback/pages.
#include "playback/PositionDisplay.h"

#include "platform/Text.h"
#include "studio/MainDesk.h"
#include "studio/Studio.h"

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

// The strip is restored only if the picture has not changed since it was saved: not past the right
// edge, and not after a redraw of the tableau. At the first step of a play there is none.
void PositionDisplay::moveMarker() {
    Run& run = studio_.run;
    View& view = studio_.view;
    if (!run.MarkerSaved.isSet())
        drawsAtSave_ = studio_.desk->musicDraws(); // the first step of a play counts from itself
    if (isStripGood())
        studio_.desk->PutColumn(run.MarkerOffset);
    else
        run.MarkerSaved = flagSet;
    view.ViewChanged = flagClear;
    if (!run.ShowNotePosition.isMinusOne())
        return;
    const auto offset = platform::toInt16(run.PlayColumn - view.FirstColumn);
    if (offset)
        run.MarkerOffset = *offset;
    if (run.MarkerOffset > view.VisibleColumns)
        turnPage();
    studio_.desk->GetColumn(run.MarkerOffset);
    drawsAtSave_ = studio_.desk->musicDraws();
    studio_.desk->drawPlayMarker(run.MarkerOffset);
}

// A redraw of the whole tableau has removed the marker already. The strip then shows an old state,
// for example a score that was cleared meanwhile or a row that was hidden.
bool PositionDisplay::isStripGood() const {
    return studio_.run.MarkerOffset < studio_.view.VisibleColumns &&
           studio_.run.MarkerSaved.isSet() && !studio_.view.ViewChanged.isSet() &&
           studio_.desk->musicDraws() == drawsAtSave_;
}

void PositionDisplay::turnPage() {
    View& view = studio_.view;
    showFromColumn(view, studio_.run.PlayColumn);
    studio_.run.MarkerOffset = 0;
    view.PlayerScroll = flagSet;
    studio_.desk->setHScroll1(view.FirstColumn + view.ColumnScrollBias);
    view.PlayerScroll = flagClear;
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
    view.ViewChanged = flagClear;
}

} // namespace velorin

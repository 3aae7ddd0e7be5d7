// The mouse handlers of the percussion strip, by button and mode.
#include "model/InstrumentNames.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "studio/Setup.h"
#include "studio/Studio.h"
#include "windows/main/MouseDrag.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/PercussionTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/TableauDesk.h"

#include <algorithm>

namespace velorin {

// Press.

// Rule: while no percussion sound was ever chosen, a press does nothing, not even a sound. Held by
// tableaux/percussion_not_chosen.
void PercussionTableau::Beatbox_MouseDown(int button, int /*shift*/, double x, double y) {
    if (isMusicRow(studio_.score.CurrentRow)) {
        selectPercussionGroup();
        return;
    }
    raiseHoverRow();
    if (!isPercussion(sounding_.PercussionChoice) || studio_.run.IsPlaying.isSet())
        return;
    beginDrag(studio_, *area_.Beatbox, x, y);
    switch (studio_.run.EditMode) {
    case editMode::draw:
        pressToDraw(
            studio_, desk_, button, [this] { beginBeat(); }, [this] { eraseBeat(); });
        break;
    case editMode::marker:
        store(studio_.score.StartColumn, pressedScoreColumn(studio_));
        DrawBeatArray();
        break;
    case editMode::select:
        pressInSelectMode(button);
        break;
    default:
        break;
    }
}

// Rule: while a music row is current, the first press on the strip selects row 8, opens the device
// again and draws nothing. Held by tableaux/first_press.
void PercussionTableau::selectPercussionGroup() {
    Setup& setup = studio_.setup;
    studio_.score.CurrentRow = firstPercussionRow;
    sounding_.Combo2_Click();
    for (int row = 0; row < scoreRows; ++row) {
        setup.setTrackSel(row, false);
        setup.setTrackHidePicture(row, false);
    }
    setup.TrackSel_MouseDown(firstPercussionRow);
    setup.setTrackHidePicture(firstPercussionRow, true);
    setup.setTrackSel(firstPercussionRow, true);
}

void PercussionTableau::raiseHoverRow() {
    constexpr std::int16_t firstPercussionHover = firstPercussionRow + 1;
    studio_.view.HoverRow = std::max(studio_.view.HoverRow, firstPercussionHover);
}

// Rule: unlike on the music tableau, a press keeps the selection and the marker, and the velocity
// is that of the note before. Held by tableaux/percussion and the unit test
// BeatPress.KeepsSelectionAndMarkerAndTheVelocityLeftBefore.
void PercussionTableau::beginBeat() {
    Drag& drag = studio_.drag;
    area_.Beatbox->setMousePointer(pointerOwn);
    sounding_.SoundRow = studio_.score.CurrentRow;
    if (!studio_.setup.TrackHide(studio_.score.CurrentRow)) {
        if (const auto pitch = draggedPitch(studio_))
            sounding_.StartNote(*pitch, sounding_.SoundRow);
    }
    drag.PressColumn = drag.MouseColumn;
    sounding_.StartColumnNotes();
    drag.DragStart = drag.MouseColumn;
    Picture& picture = area_.Beatbox->picture;
    drawNoteHead(picture, drag.MouseColumn, drag.MouseLine, picture.fillColor);
}

// Rule: the right click erases also if it is set to chord marks. Held by tableaux/percussion.
void PercussionTableau::eraseBeat() {
    const Score& score = studio_.score;
    if (score.NoteArray.read(score.CurrentRow,
                             studio_.view.FirstColumn + studio_.drag.MouseColumn) == emptyCell)
        return;
    walkToHead(studio_, [] {});
    eraseCell(studio_);
    store(studio_.drag.MouseColumn, platform::toInt16(studio_.drag.MouseColumn + 1));
    eraseHeldCells(studio_, [] {});
    DrawBeatArray();
}

// Rule: unlike on the music tableau, a press inside a selection keeps its start. Held by
// tableaux/percussion.
void PercussionTableau::pressInSelectMode(int button) {
    Score& score = studio_.score;
    if (button == leftButton) {
        DrawBeatArray();
        music_.GetBox();
        studio_.drag.DragStart = studio_.drag.MouseColumn;
        const auto column = pressedScoreColumn(studio_);
        if (column && (*column < score.SelectStart || score.SelectStart == -1))
            score.SelectStart = *column;
    } else if (button == rightButton) {
        score.dropSelection();
        DrawBeatArray();
    }
}

// Move.

// Rule: the pointer's picture follows the line of the move before. Held by
// tableaux/percussion_pointer.
void PercussionTableau::Beatbox_MouseMove(int button, int shift, double x, double y) {
    if (isMusicRow(studio_.score.CurrentRow))
        return;
    raiseHoverRow();
    showToolTip(x);
    const int mode = studio_.run.EditMode;
    if (studio_.run.IsPlaying.isSet() && (button != noButton || mode != editMode::draw))
        return;
    if (studio_.drag.PriorLineBeat != studio_.drag.MouseLine)
        area_.Beatbox->setMousePointer(pointerUpArrow);
    if (button != noButton && !studio_.drag.MouseHeld.isSet())
        return;
    if (mode == editMode::draw) {
        if (button == noButton)
            area_.Beatbox->setMousePointer(pointerUpArrow);
        else if (button == rightButton)
            Beatbox_MouseDown(rightButton, shift, x, y);
        else if (button == leftButton && !dragBeat(x))
            return;
    } else if (mode == editMode::select && button == leftButton) {
        if (!takeDragColumn(studio_, x))
            return;
        music_.PutBox();
    }
    store(studio_.drag.PriorLineBeat, pixelToCell(y));
}

void PercussionTableau::showToolTip(double x) {
    const auto cell = tipCell(studio_, x);
    if (!cell)
        return;
    if (isEmpty(cell->note)) {
        area_.Beatbox->setToolTip({});
        return;
    }
    area_.Beatbox->setToolTip(
        QString::fromStdString(percussionEntry(cell->instrument - firstPercussion)));
    studio_.platform.loop.Yield();
}

// No pixels were saved, so a drawn band stays until the release, even if the pointer moves back.
bool PercussionTableau::dragBeat(double x) {
    const Drag& drag = studio_.drag;
    const bool onItsLine = drag.PriorLineBeat == drag.MouseLine;
    area_.Beatbox->setMousePointer(onItsLine ? pointerOwn : pointerUpArrow);
    if (!takeDragColumn(studio_, x))
        return false;
    drawRubberBand(area_.Beatbox->picture, studio_);
    return true;
}

// Release.
//
// Rule: the release of the right button makes the strip y + 12 high, also while a music row is
// current. Held by tableaux/percussion.

void PercussionTableau::Beatbox_MouseUp(int button, int /*shift*/, double x, double y) {
    if (studio_.run.IsPlaying.isSet())
        return;
    area_.Beatbox->setMousePointer(pointerUpArrow);
    if (button == rightButton)
        resizeStrip(y);
    if (!studio_.drag.MouseHeld.isSet())
        return;
    studio_.drag.MouseHeld = flagClear;
    if (studio_.run.EditMode == editMode::draw) {
        store(studio_.drag.MouseColumn, pixelToCell(x));
        if (button == leftButton)
            endBeat();
    } else if (studio_.run.EditMode == editMode::select && button == leftButton) {
        endSelectionAt(studio_, x);
        DrawBeatArray();
    }
}

void PercussionTableau::resizeStrip(double y) {
    if (const auto height = platform::toInt16(y + cellPx)) {
        const QRect old = area_.Beatbox->geometry();
        area_.Beatbox->place(old.x(), old.y(), old.width(), *height);
    }
    DrawBeatArray();
}

void PercussionTableau::endBeat() {
    clampToVisible(studio_);
    sounding_.SoundRow = studio_.score.CurrentRow;
    if (!studio_.setup.TrackHide(studio_.score.CurrentRow)) {
        if (const auto pitch = draggedPitch(studio_))
            sounding_.StopNote(*pitch);
    }
    sounding_.StopColumnNotes();
    clampToDragStart(studio_);
    writeNoteHead(studio_);
    writeHeldCells(studio_);
    repairAfterNote(studio_);
    DrawBeatArray();
}

} // namespace velorin

// What a press, a move and a release on the percussion strip do, by button and mode.
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "score/SetupControls.h"
#include "score/Studio.h"
#include "tableaux/MouseDrag.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/PercussionTableau.h"
#include "tableaux/Picmain.h"
#include "tableaux/TableauDesk.h"

#include <algorithm>

namespace velorin {

// Press.

void PercussionTableau::Beatbox_MouseDown(int button, int /*shift*/, double x, double y) {
    if (isMusicRow(studio_.score.CurrentRow)) {
        selectPercussionGroup();
        return;
    }
    raiseHoverRow();
    if (!isPercussion(sounding_.PercussionChoice) || studio_.run.IsPlaying)
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

void PercussionTableau::selectPercussionGroup() {
    SetupControls& setup = studio_.setup;
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

// The velocity stays what the note before left, and so do the selection and `StartColumn`.
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

// A press inside an old selection leaves its start where it is.
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

void PercussionTableau::Beatbox_MouseMove(int button, int shift, double x, double y) {
    if (isMusicRow(studio_.score.CurrentRow))
        return;
    raiseHoverRow();
    showToolTip(x);
    const int mode = studio_.run.EditMode;
    if (studio_.run.IsPlaying && (button != noButton || mode != editMode::draw))
        return;
    if (studio_.drag.PriorLineBeat != studio_.drag.MouseLine)
        area_.Beatbox->setMousePointer(pointerUpArrow);
    if (button != noButton && !studio_.drag.MouseHeld)
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
        QString::fromStdString(desk_.Combo5Entry(cell->instrument - firstPercussion)));
    studio_.platform.loop.Yield();
}

// No strip was saved, so a band once drawn stays until the release, also if the pointer goes back.
bool PercussionTableau::dragBeat(double x) {
    const Drag& drag = studio_.drag;
    const bool onItsLine = drag.PriorLineBeat == drag.MouseLine;
    area_.Beatbox->setMousePointer(onItsLine ? pointerOwn : pointerUpArrow);
    if (!takeDragColumn(studio_, x))
        return false;
    drawRubberBand(area_.Beatbox->picture, studio_);
    return true;
}

// Release. `CurrentRow` is not looked at: the strip is resized with a melodic row current too.

void PercussionTableau::Beatbox_MouseUp(int button, int /*shift*/, double x, double y) {
    if (studio_.run.IsPlaying)
        return;
    area_.Beatbox->setMousePointer(pointerUpArrow);
    if (button == rightButton)
        resizeStrip(y);
    if (!studio_.drag.MouseHeld)
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
    repairBehindNote(studio_);
    DrawBeatArray();
}

} // namespace velorin

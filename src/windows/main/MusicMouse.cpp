// The mouse handlers of the music tableau, by button and mode.
#include "windows/main/MusicMouse.h"

#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "studio/Setup.h"
#include "studio/Studio.h"
#include "windows/main/MouseDrag.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/PolyTableau.h"
#include "windows/main/TableauDesk.h"

namespace velorin {

namespace {

constexpr Colour selectionBlue = rgb(0, 0, 255);

} // namespace

// Press.

void MusicMouse::MusicBox_MouseDown(int button, int /*shift*/, double x, double y) {
    if (!isMusicRow(studio_.score.CurrentRow)) {
        selectMusicGroup();
        return;
    }
    if (studio_.run.IsPlaying.isSet())
        return;
    beginDrag(studio_, *area_.MusicBox, x, y);
    switch (studio_.run.EditMode) {
    case editMode::draw:
        pressInDrawMode(button);
        break;
    case editMode::marker:
        pressInMarkerMode(button);
        break;
    case editMode::select:
        pressInSelectMode(button);
        break;
    default:
        break;
    }
}

// The option is set last: its handler redraws in the row's colour and gives the row the instrument
// that the list shows.
//
// Rule: while a percussion row is current, the first press on the music tableau selects row 0 and
// draws nothing. Held by tableaux/first_press.
void MusicMouse::selectMusicGroup() {
    studio_.score.CurrentRow = 0;
    sounding_.Combo1_Click();
    studio_.setup.TrackSel_MouseDown(0);
    studio_.setup.setTrackHidePicture(0, true);
    studio_.setup.setTrackSel(0, true);
}

// Rule: every press in draw mode, also of the right button, drops the selection and sets the marker
// to column 0. Held by tableaux/drawing_notes.
void MusicMouse::pressInDrawMode(int button) {
    studio_.score.dropSelection();
    studio_.score.StartColumn = 0;
    pressToDraw(
        studio_, desk_, button, [this] { beginNote(); }, [this] { eraseOrMark(); });
}

// Rule: a note in a hidden row is written without a sound of its own. Held by
// tableaux/drawing_notes.
void MusicMouse::beginNote() {
    Drag& drag = studio_.drag;
    area_.MusicBox->setMousePointer(pointerOwn);
    const int row = studio_.score.CurrentRow;
    sounding_.SoundRow = static_cast<std::int16_t>(row);
    sounding_.readVolume(row);
    if (!studio_.setup.TrackHide(row)) {
        if (const auto pitch = draggedPitch(studio_))
            sounding_.StartNoteBtnDn(*pitch);
    }
    drag.PressColumn = drag.MouseColumn;
    sounding_.StartColumnNotes();
    tableau_.GetRow(drag.MouseLine);
    drag.DragStart = drag.MouseColumn;
    Picture& picture = area_.MusicBox->picture;
    drawNoteHead(picture, drag.MouseColumn, drag.MouseLine, picture.fillColor);
}

// Rule: chord marks use the column on the screen, cells the column of the score, so in a scrolled
// view a mark is not at its note. Existing files were made that way. Held by tableaux/erasing.
//
// Rule: the walk from a held cell to the head clears the marks that it passes, also the one that
// was just set. So only a press on the head sets a mark. Held by tableaux/erasing.
void MusicMouse::eraseOrMark() {
    Score& score = studio_.score;
    const Drag& drag = studio_.drag;
    const auto mark = [&](int screenColumn, std::int16_t value) {
        score.PolyArray.write(score.CurrentRow + 1, screenColumn, value);
    };
    if (score.NoteArray.read(score.CurrentRow, studio_.view.FirstColumn + drag.MouseColumn) ==
        emptyCell)
        return;
    mark(drag.MouseColumn + 1, 1);
    walkToHead(studio_, [&] { mark(drag.MouseColumn + 1, 0); });
    if (studio_.run.RightClickMode != rightClick::polynotes) {
        eraseCell(studio_);
        mark(drag.MouseColumn + 1, 0);
        store(studio_.drag.MouseColumn, platform::toInt16(drag.MouseColumn + 1));
        eraseHeldCells(studio_, [&] { mark(drag.MouseColumn, 0); });
    }
    redraw();
}

void MusicMouse::pressInMarkerMode(int button) {
    if (button == rightButton) {
        desk_.popupCommand2();
        return;
    }
    store(studio_.score.StartColumn, pressedScoreColumn(studio_));
    tableau_.DrawNoteArray();
}

// Rule: after the menu of the right button nothing is selected. Held by tableaux/selecting.
void MusicMouse::pressInSelectMode(int button) {
    Score& score = studio_.score;
    if (button == leftButton) {
        beginSelection();
    } else if (button == rightButton) {
        desk_.popupCommand2();
        score.dropSelection();
        score.StartColumn = 0;
        tableau_.DrawNoteArray();
    }
}

// Rule: a press inside or after a selection moves its start at once and keeps its end until the
// release. Held by tableaux/selecting.
//
// After a press before the selection, the redraw covers the outline.
void MusicMouse::beginSelection() {
    Score& score = studio_.score;
    Drag& drag = studio_.drag;
    const auto column = pressedScoreColumn(studio_);
    const bool startsLater = score.SelectStart != -1 && column && *column >= score.SelectStart;
    if (startsLater)
        store(score.SelectStart, column);
    tableau_.DrawNoteArray();
    tableau_.GetBox();
    outlineSelection(drag.MouseColumn * cellPx + 16);
    drag.DragStart = drag.MouseColumn;
    if (!startsLater) {
        store(score.SelectStart, column);
        tableau_.DrawNoteArray();
    }
    store(score.StartColumn, column);
    store(studio_.run.PlayBlockStart, column);
}

void MusicMouse::outlineSelection(int right) {
    Picture& picture = area_.MusicBox->picture;
    picture.outlineBox(studio_.drag.MouseColumn * cellPx, 0, right, picture.ScaleHeight() - 1,
                       selectionBlue);
}

// Move.

void MusicMouse::MusicBox_MouseMove(int button, int shift, double x, double y) {
    if (!isMusicRow(studio_.score.CurrentRow))
        return;
    showToolTip(x);
    const int mode = studio_.run.EditMode;
    if (studio_.run.IsPlaying.isSet() && (button != noButton || mode != editMode::draw))
        return;
    if (button != noButton && !studio_.drag.MouseHeld.isSet())
        return;
    if (studio_.drag.PriorLine != studio_.drag.MouseLine)
        area_.MusicBox->setMousePointer(pointerUpArrow);
    if (mode == editMode::draw) {
        if (button == noButton)
            area_.MusicBox->setMousePointer(pointerUpArrow);
        else if (button == rightButton)
            MusicBox_MouseDown(rightButton, shift, x, y);
        else if (button == leftButton && !dragNote(x))
            return;
    } else if (mode == editMode::select && button == leftButton && !dragSelection(x)) {
        return;
    }
    store(studio_.drag.PriorLine, pixelToCell(y));
}

// The pen is shown while the pointer is on the line of the note; the note never leaves its line.
bool MusicMouse::dragNote(double x) {
    const Drag& drag = studio_.drag;
    const bool onItsLine = drag.PriorLine == drag.MouseLine;
    area_.MusicBox->setMousePointer(onItsLine ? pointerOwn : pointerUpArrow);
    if (!takeDragColumn(studio_, x))
        return false;
    tableau_.PutRow(drag.MouseLine);
    drawRubberBand(area_.MusicBox->picture, studio_);
    return true;
}

bool MusicMouse::dragSelection(double x) {
    if (!takeDragColumn(studio_, x))
        return false;
    tableau_.PutBox();
    outlineSelection(studio_.drag.DragColumn * cellPx + 12);
    return true;
}

// Release.

void MusicMouse::MusicBox_MouseUp(int button, int /*shift*/, double x, double /*y*/) {
    if (!isMusicRow(studio_.score.CurrentRow) || studio_.run.IsPlaying.isSet())
        return;
    area_.MusicBox->setMousePointer(pointerUpArrow);
    if (!studio_.drag.MouseHeld.isSet())
        return;
    studio_.drag.MouseHeld = flagClear;
    if (studio_.run.EditMode == editMode::draw)
        releaseInDrawMode(button, x);
    else if (studio_.run.EditMode == editMode::select && button == leftButton)
        endSelection(x);
}

void MusicMouse::releaseInDrawMode(int button, double x) {
    studio_.score.dropSelection();
    studio_.score.StartColumn = 0;
    store(studio_.drag.MouseColumn, pixelToCell(x));
    if (button == rightButton)
        poly_.DrawPolyTableau();
    else if (button == leftButton)
        endNote();
}

// Rule: the release of a note longer than one column resets the device; a click does not. Held by
// tableaux/drawing_notes.
void MusicMouse::endNote() {
    clampToVisible(studio_);
    sounding_.SoundRow = studio_.score.CurrentRow;
    if (const auto pitch = draggedPitch(studio_))
        sounding_.StopNoteBtnUp(*pitch);
    clampToDragStart(studio_);
    writeNoteHead(studio_);
    if (writeHeldCells(studio_))
        sounding_.StopSound();
    repairAfterNote(studio_);
    redraw();
}

void MusicMouse::endSelection(double x) {
    endSelectionAt(studio_, x);
    store(studio_.run.PlayBlockEnd, pressedScoreColumn(studio_));
    redraw();
}

void MusicMouse::redraw() {
    tableau_.DrawNoteArray();
    poly_.DrawPolyTableau();
}

// Around the mouse.

void MusicMouse::MusicBox_GotFocus() {
    area_.MusicBox->setToolTip({});
    Setup& setup = studio_.setup;
    for (int row = 0; row < musicRows; ++row) {
        if (setup.TrackSel(row))
            return;
    }
    setup.setTrackSel(0, true);
    for (int row = firstPercussionRow; row < scoreRows; ++row) {
        setup.setTrackSel(row, false);
        setup.setTrackHidePicture(row, false);
    }
    setup.setTrackHidePicture(0, true);
}

void MusicMouse::FunctionBut_Click(int index) {
    store(studio_.run.EditMode, platform::toInt16(index));
    if (index == editMode::draw)
        area_.MusicBox->setMousePointer(pointerDefault);
    else if (index == editMode::marker || index == editMode::select)
        area_.MusicBox->setMousePointer(pointerCross);
}

} // namespace velorin

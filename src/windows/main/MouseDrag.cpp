// The steps that drags on the music and on the percussion tableau share.
#include "windows/main/MouseDrag.h"

#include "drawing/Picture.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "studio/Studio.h"
#include "windows/main/PictureBox.h"
#include "windows/main/TableauDesk.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

int scoreColumn(const Studio& studio, int screenColumn) {
    return studio.view.FirstColumn + screenColumn;
}

bool isHeldAtMouse(const Studio& studio) {
    const auto cell = studio.score.NoteArray.read(studio.score.CurrentRow,
                                                  scoreColumn(studio, studio.drag.MouseColumn));
    return cell && isHeld(*cell);
}

void stepMouseColumn(Studio& studio, int step) {
    store(studio.drag.MouseColumn, platform::toInt16(studio.drag.MouseColumn + step));
}

void writeCell(Studio& studio, int screenColumn, int value) {
    Score& score = studio.score;
    const int row = score.CurrentRow;
    const int column = scoreColumn(studio, screenColumn);
    if (const auto cell = platform::toInt16(value))
        score.NoteArray.write(row, column, *cell);
    score.InstrumentArray.write(row, column, score.RowInstrument[row]);
}

} // namespace

std::optional<std::int16_t> pixelToCell(double pixel) {
    return platform::toInt16(std::trunc(platform::roundHalfEven(pixel) / cellPx));
}

std::optional<std::int16_t> pixelToTipColumn(double x) {
    return platform::toInt16(std::floor(x / cellPx));
}

std::optional<TipCell> tipCell(const Studio& studio, double x) {
    const auto column = pixelToTipColumn(x);
    if (!column)
        return std::nullopt;
    const int row = studio.view.HoverRow - 1;
    const auto note = studio.score.NoteArray.read(row, *column);
    if (!note)
        return std::nullopt;
    return TipCell{*note, *studio.score.InstrumentArray.read(row, *column)};
}

void beginDrag(Studio& studio, PictureBox& box, double x, double y) {
    box.setMousePointer(pointerUpArrow);
    studio.drag.MouseHeld = flagSet;
    store(studio.drag.MouseColumn, pixelToCell(x));
    store(studio.drag.MouseLine, pixelToCell(y));
}

void pressToDraw(const Studio& studio, TableauDesk& desk, int button,
                 const std::function<void()>& begin, const std::function<void()>& erase) {
    if (button == leftButton) {
        begin();
    } else if (button == rightButton) {
        const int mode = studio.run.RightClickMode;
        if (mode == rightClick::menu)
            desk.popupCommand1();
        else if (mode == rightClick::erase || mode == rightClick::polynotes)
            erase();
    }
}

std::optional<std::int16_t> draggedPitch(const Studio& studio) {
    return platform::toInt16(studio.view.TopPitch + studio.drag.MouseLine);
}

std::optional<std::int16_t> pressedScoreColumn(const Studio& studio) {
    return platform::toInt16(scoreColumn(studio, studio.drag.MouseColumn));
}

// Stores the raw column, not the clamped one: a pointer that moves left of the press redraws the
// same band at each new column.
bool takeDragColumn(Studio& studio, double x) {
    Drag& drag = studio.drag;
    const auto column = pixelToCell(x);
    if (!column || *column == drag.PriorDragColumn)
        return false;
    drag.PriorDragColumn = *column;
    drag.DragColumn = std::max(std::min(*column, studio.view.VisibleColumns), drag.MouseColumn);
    return true;
}

void clampToVisible(Studio& studio) {
    studio.drag.MouseColumn = std::min(studio.drag.MouseColumn, studio.view.VisibleColumns);
}

void clampToDragStart(Studio& studio) {
    studio.drag.MouseColumn = std::max(studio.drag.MouseColumn, studio.drag.DragStart);
}

void writeNoteHead(Studio& studio) {
    writeCell(studio, studio.drag.DragStart, studio.view.TopPitch + studio.drag.MouseLine);
}

bool writeHeldCells(Studio& studio) {
    const Drag& drag = studio.drag;
    const int pitch = studio.view.TopPitch + drag.MouseLine;
    for (int column = drag.DragStart + 1; column <= drag.MouseColumn; ++column)
        writeCell(studio, column, heldCell(pitch));
    return drag.MouseColumn > drag.DragStart;
}

void repairAfterNote(Studio& studio) {
    Score& score = studio.score;
    const int column = scoreColumn(studio, studio.drag.MouseColumn) + 1;
    startIfHeld(score.NoteArray, score.CurrentRow, column);
}

void endSelectionAt(Studio& studio, double x) {
    store(studio.drag.MouseColumn, pixelToCell(x));
    clampToVisible(studio);
    clampToDragStart(studio);
    store(studio.score.SelectEnd, pressedScoreColumn(studio));
}

void walkToHead(Studio& studio, const std::function<void()>& passed) {
    for (int steps = 0; steps < scoreColumns && isHeldAtMouse(studio); ++steps) {
        passed();
        stepMouseColumn(studio, -1);
        studio.platform.loop.Yield();
    }
}

void eraseCell(Studio& studio) {
    Score& score = studio.score;
    const int column = scoreColumn(studio, studio.drag.MouseColumn);
    score.NoteArray.write(score.CurrentRow, column, emptyCell);
    score.InstrumentArray.write(score.CurrentRow, column, 0);
}

void eraseHeldCells(Studio& studio, const std::function<void()>& erased) {
    for (int steps = 0; steps < scoreColumns && isHeldAtMouse(studio); ++steps) {
        eraseCell(studio);
        erased();
        stepMouseColumn(studio, 1);
    }
}

void drawNoteHead(Picture& picture, int column, int line, Colour colour) {
    picture.noteHead(column * cellPx, line * cellPx, colour);
}

void drawRubberBand(Picture& picture, const Studio& studio) {
    const Drag& drag = studio.drag;
    const Colour colour = studio.view.DrawColor;
    const int top = drag.MouseLine * cellPx + 4;
    picture.outlineBox(drag.MouseColumn * cellPx + 1, top, drag.DragColumn * cellPx + 10, top + 3,
                       colour);
    drawNoteHead(picture, drag.MouseColumn, drag.MouseLine, colour);
}

} // namespace velorin

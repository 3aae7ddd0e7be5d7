// Draws on the tableaux for step entry, by their mouse handlers.
#include "program/TableauPen.h"

#include "drawing/CellGrid.h"
#include "platform/MessageLoop.h"
#include "session/Session.h"
#include "windows/main/Form1.h"
#include "windows/pen/Strokes.h"

#include <QApplication>

#include <algorithm>

namespace velorin {

namespace {

constexpr int noModifier = 0;

} // namespace

bool TableauPen::isReady() const {
    const Studio& studio = form_.session.studio;
    return form_.area->MusicBox->isEnabled() && !studio.drag.MouseHeld.isSet() &&
           !studio.run.LoadingMain.isSet() && !studio.platform.loop.isEnding() &&
           QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

bool TableauPen::isStripShown() const {
    return !form_.area->Beatbox->isHidden();
}

SeenCells TableauPen::seen() const {
    const QRect music = form_.area->MusicBox->geometry();
    const QRect strip = form_.area->Beatbox->geometry();
    const int covered = isStripShown() ? std::max(0, strip.bottom() + 1 - music.top()) : 0;
    SeenCells cells;
    cells.columns = music.width() / cellPx;
    cells.firstLine = (covered + cellPx - 1) / cellPx;
    cells.lastLine = std::max(music.height() / cellPx - 1, cells.firstLine);
    return cells;
}

void TableauPen::drawNote(int line, int column, int lastColumn) {
    draw(*form_.area->MusicBox, {Tableau::music, column, line}, lastColumn);
}

void TableauPen::drawBeat(int line, int column) {
    draw(*form_.area->Beatbox, {Tableau::strip, column, line}, column);
}

void TableauPen::draw(const PictureBox& box, const Place& first, int lastColumn) {
    const QPointF press = Strokes::middle(first);
    const QPointF end = Strokes::middle({first.tableau, lastColumn, first.line});
    box.onMouseDown(leftButton, noModifier, press.x(), press.y());
    box.onMouseMove(leftButton, noModifier, end.x(), end.y());
    box.onMouseUp(leftButton, noModifier, end.x(), end.y());
}

} // namespace velorin

// A user with the pen, and one with the mouse who repeats the drawings.
#include "Hands.h"

#include "windows/pen/Pen.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace randomly {

using velorin::Pen;
using velorin::Place;
using velorin::Reach;
using velorin::Strokes;
using velorin::Tableau;

namespace {

Qt::MouseButton toQt(int button) {
    return button == 0 ? Qt::NoButton : button == 1 ? Qt::LeftButton : Qt::RightButton;
}

} // namespace

// The pen.

int PenHand::keyOf(int button) {
    return button == 1 ? Qt::Key_Return : Qt::Key_Delete;
}

void PenHand::press(int key, int modifiers) {
    stage_.sendKey(QEvent::KeyPress, key, modifiers);
    stage_.sendKey(QEvent::KeyRelease, key, modifiers);
}

Place PenHand::somewhere(Tableau tableau) {
    const Reach reach = stage_.form().pen->reach(tableau);
    return {tableau, chance_.below(reach.columns),
            chance_.between(reach.firstLine, reach.endLine - 1)};
}

/// One key that comes nearer.
void PenHand::stepTo(const Place& target) {
    const Place place = stage_.form().pen->place();
    const int right = target.column - place.column;
    const int down = target.line - place.line;
    constexpr int bar = 4;
    constexpr int octave = 12;
    if (right != 0 && (down == 0 || chance_.oneOf(2))) {
        const int last = stage_.form().pen->reach(place.tableau).columns - 1;
        if (target.column == 0 && chance_.oneOf(2))
            return press(Qt::Key_Home);
        if (target.column == last && chance_.oneOf(2))
            return press(Qt::Key_End);
        const bool isBar = std::abs(right) >= bar && chance_.oneOf(2);
        return press(right > 0 ? Qt::Key_Right : Qt::Key_Left,
                     isBar ? int{Qt::ControlModifier} : 0);
    }
    if (std::abs(down) >= octave)
        return press(down > 0 ? Qt::Key_PageDown : Qt::Key_PageUp);
    press(down > 0 ? Qt::Key_Down : Qt::Key_Up);
}

void PenHand::walkTo(const Place& target) {
    const Pen& pen = *stage_.form().pen;
    constexpr int mostSteps = 400;
    for (int i = 0; i < mostSteps && pen.isShown() && pen.place() != target; ++i)
        stepTo(target);
}

void PenHand::scroll(Drawing& drawing) {
    const Pen& pen = *stage_.form().pen;
    if (pen.isShown() && chance_.oneOf(10))
        press(Qt::Key_Escape);
    if (!pen.isShown())
        press(Qt::Key_Up);
    const velorin::View& view = stage_.program.studio().view;
    const int firstColumn = view.FirstColumn;
    const int topPitch = view.TopPitch;
    const Reach reach = pen.reach(drawing.tableau);
    const int columns = chance_.between(1, 30);
    if (chance_.percent(30)) {
        const bool isBack = chance_.oneOf(3);
        walkTo({drawing.tableau, isBack ? 0 : reach.columns - 1, pen.place().line});
        for (int i = 0; i < columns; ++i)
            press(isBack ? Qt::Key_Left : Qt::Key_Right);
    }
    if (drawing.tableau == Tableau::music && chance_.percent(30)) {
        const bool isUp = chance_.oneOf(2);
        walkTo({drawing.tableau, pen.place().column, isUp ? reach.firstLine : reach.endLine - 1});
        for (int i = 0; i < columns / 2; ++i)
            press(isUp ? Qt::Key_Up : Qt::Key_Down);
    }
    drawing.scrolled = {view.FirstColumn - firstColumn, view.TopPitch - topPitch};
    walkTo(somewhere(drawing.tableau));
}

void PenHand::press(Drawing& drawing) {
    drawing.press = stage_.form().pen->place();
    stage_.sendKey(QEvent::KeyPress, keyOf(drawing.button));
    if (chance_.oneOf(3))
        stage_.sendKey(QEvent::KeyPress, keyOf(drawing.button), 0, true);
}

void PenHand::move(Drawing& drawing) {
    Pen& pen = *stage_.form().pen;
    if (!pen.isHeld() || chance_.oneOf(3))
        return;
    pen.onMoved = [&drawing](const Place& from, const Place& to) {
        if (from != to)
            drawing.path.push_back(to);
    };
    const int targets = chance_.between(1, 3);
    for (int i = 0; i < targets; ++i) {
        Place target = somewhere(drawing.tableau);
        if (chance_.percent(60)) // most drags are short
            target.column = std::min(pen.place().column + chance_.below(6),
                                     pen.reach(drawing.tableau).columns - 1);
        if (drawing.tableau == Tableau::strip && drawing.button == 2)
            target.line = chance_.below(6);
        walkTo(target);
    }
    pen.onMoved = nullptr;
}

void PenHand::release(Drawing& drawing) {
    stage_.sendKey(QEvent::KeyRelease, keyOf(drawing.button));
}

// The mouse.

void MouseHand::send(Tableau tableau, QEvent::Type type, int button, int held, QPointF at) {
    QWidget* const box = stage_.form().pen->strokes().box(tableau);
    const QPointF global = box->mapToGlobal(at);
    QMouseEvent event(type, at, box->window()->mapFromGlobal(global), global, toQt(button),
                      toQt(held), Qt::NoModifier);
    QApplication::sendEvent(box, &event);
}

/// Somewhere in the cell, not at its edge.
QPointF MouseHand::nearTo(const Place& place) {
    const QRect cell = Strokes::cell(place);
    return {cell.x() + 2.0 + chance_.below(cell.width() - 4),
            cell.y() + 2.0 + chance_.below(cell.height() - 4)};
}

void MouseHand::scroll(Drawing& drawing) {
    const auto scroll = [](QScrollBar& bar, int steps) {
        const int step = steps > 0 ? 1 : -1;
        for (int i = 0; i < std::abs(steps); ++i)
            bar.setValue(bar.value() + step);
    };
    scroll(*stage_.form().area->HScroll1, drawing.scrolled[0]);
    scroll(*stage_.form().area->VScroll1, drawing.scrolled[1]);
}

void MouseHand::press(Drawing& drawing) {
    const Reach reach = stage_.form().pen->reach(drawing.tableau);
    const int hovers = chance_.below(4);
    for (int i = 0; i < hovers; ++i)
        send(drawing.tableau, QEvent::MouseMove, 0, 0,
             nearTo({drawing.tableau, chance_.below(reach.columns),
                     chance_.between(reach.firstLine, reach.endLine - 1)}));
    send(drawing.tableau, QEvent::MouseMove, 0, 0, nearTo(drawing.press));
    send(drawing.tableau, QEvent::MouseButtonPress, drawing.button, drawing.button,
         nearTo(drawing.press));
}

/// While the right click opens the menu, so does each report of a move with that button.
void MouseHand::move(Drawing& drawing) {
    const bool opensMenus = drawing.button == 2 && drawing.tableau != Tableau::lanes &&
                            stage_.program.studio().run.RightClickMode == velorin::rightClick::menu;
    for (const Place& place : drawing.path) {
        const int reports = opensMenus ? 1 : chance_.between(2, 3);
        for (int i = 0; i < reports; ++i)
            send(drawing.tableau, QEvent::MouseMove, 0, drawing.button, nearTo(place));
    }
}

/// At the middle: a release in the strip sets its height by the pixel.
void MouseHand::release(Drawing& drawing) {
    const Place at = drawing.path.empty() ? drawing.press : drawing.path.back();
    send(drawing.tableau, QEvent::MouseButtonRelease, drawing.button, 0, Strokes::middle(at));
}

} // namespace randomly

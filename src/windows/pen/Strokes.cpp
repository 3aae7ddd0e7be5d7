// Presses, moves and releases at a cell, for everything that draws without a mouse.
#include "windows/pen/Strokes.h"

#include "drawing/CellGrid.h"
#include "drawing/ChordLanes.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace velorin {

namespace {

constexpr int lanePx = 7;

Qt::MouseButton toQt(int button) {
    constexpr int right = 2;
    return button == 0 ? Qt::NoButton : button == right ? Qt::RightButton : Qt::LeftButton;
}

/// The cells of that size whose middle is before `endPx`.
int cellsBefore(int endPx) {
    return std::max(0, (endPx + cellPx / 2 - 1) / cellPx);
}

} // namespace

QWidget* Strokes::box(Tableau tableau) const {
    switch (tableau) {
    case Tableau::music:
        return &sheet_.music;
    case Tableau::strip:
        return &sheet_.strip;
    case Tableau::lanes:
        return &sheet_.lanes;
    case Tableau::numbers:
        break;
    }
    return nullptr;
}

Reach Strokes::reach(Tableau tableau) const {
    const QWidget* const shown = box(tableau);
    if (shown == nullptr || shown->isHidden())
        return {};
    Reach reach{cellsBefore(shown->width()), 0, cellsBefore(shown->height())};
    if (tableau == Tableau::lanes)
        reach.endLine = std::min(musicRows, shown->height() / lanePx);
    if (tableau == Tableau::music && !sheet_.strip.isHidden()) {
        const int covered = sheet_.strip.geometry().bottom() + 1 - shown->y();
        reach.firstLine = cellsBefore(covered);
    }
    return reach;
}

QRect Strokes::cell(const Place& place) {
    if (place.tableau != Tableau::lanes)
        return {place.column * cellPx, place.line * cellPx, cellPx, cellPx};
    return {place.column * cellPx, place.line * lanePx + 1, cellPx, lanePx};
}

QPointF Strokes::middle(const Place& place) {
    const QRect around = cell(place);
    return {around.x() + around.width() / 2.0, around.y() + around.height() / 2.0};
}

bool Strokes::isOwn(const QEvent& event) const {
    return sending_ > 0 && !event.spontaneous();
}

void Strokes::send(const Place& place, int type, int button, int held) {
    QWidget* const target = box(place.tableau);
    const QPointF at = middle(place);
    const QPointF global = target->mapToGlobal(at);
    QMouseEvent event(static_cast<QEvent::Type>(type), at, target->window()->mapFromGlobal(global),
                      global, toQt(button), toQt(held), Qt::NoModifier);
    ++sending_;
    QApplication::sendEvent(target, &event);
    --sending_;
}

void Strokes::press(const Place& place, int button) {
    if (isHeld() || box(place.tableau) == nullptr)
        return;
    pressed_ = place.tableau;
    held_ = button;
    send(place, QEvent::MouseButtonPress, button, button);
}

// Rule: a move in the lanes is reported twice. They drop a move that looks like the one before, and
// a mouse reports each of its places more often than that. Held by the unit test
// StrokesTest.EveryLaneOnTheWayIsMarked.
void Strokes::move(const Place& place) {
    const int reports = place.tableau == Tableau::lanes ? 2 : 1;
    for (int i = 0; i < reports && isHeld() && place.tableau == pressed_; ++i)
        send(place, QEvent::MouseMove, 0, held_);
}

void Strokes::release(const Place& place) {
    if (isHeld() && place.tableau == pressed_)
        send(place, QEvent::MouseButtonRelease, std::exchange(held_, 0), 0);
}

} // namespace velorin

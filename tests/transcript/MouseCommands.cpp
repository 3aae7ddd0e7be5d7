// The command `mouse`: presses, moves and releases through hit testing.
#include "ButtonFaces.h"
#include "Commands.h"
#include "ControlNames.h"
#include "Session.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

#include <array>
#include <cmath>

namespace transcript {

namespace {

Qt::MouseButton buttonOf(int number) {
    switch (number) {
    case 0:
        return Qt::NoButton;
    case 1:
        return Qt::LeftButton;
    case 2:
        return Qt::RightButton;
    case 4:
        return Qt::MiddleButton;
    default:
        throw CommandError("no such button: " + std::to_string(number));
    }
}

/// What lies under a point of `control`, which need not be that control; null outside its window.
QWidget* hit(QWidget& control, QPointF place) {
    QWidget* window = control.window();
    const QPoint point = control.mapTo(window, QPoint(static_cast<int>(std::floor(place.x())),
                                                      static_cast<int>(std::floor(place.y()))));
    if (!window->isVisible() || !window->rect().contains(point))
        return nullptr;
    QWidget* child = window->childAt(point);
    return child != nullptr ? child : window;
}

struct MouseEventParts {
    QEvent::Type type;
    Qt::MouseButton button; ///< the one pressed or released; none for a move
    Qt::MouseButtons held;  ///< those held behind the event
};

MouseEventParts partsOf(const std::string& action, Qt::MouseButton button) {
    if (action == "down")
        return {QEvent::MouseButtonPress, button, button};
    if (action == "up")
        return {QEvent::MouseButtonRelease, button, Qt::NoButton};
    if (action == "move")
        return {QEvent::MouseMove, Qt::NoButton, button};
    throw CommandError("no such action: " + action);
}

void send(QWidget& target, const QWidget& control, QPointF place, const MouseEventParts& parts) {
    const QPointF global = control.mapToGlobal(place);
    const QPointF local = target.mapFromGlobal(global);
    QMouseEvent event(parts.type, local, target.window()->mapFromGlobal(global), global,
                      parts.button, parts.held, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
}

bool holds(const QWidget& outer, const QWidget* inner) {
    return inner != nullptr && (&outer == inner || outer.isAncestorOf(inner));
}

/// The pointer comes to `target`: what it was over, up to what holds both, is left.
void pointAt(Session& session, QWidget* target) {
    QPointer<QWidget> left = session.pointedAt;
    session.pointedAt = target;
    while (left != nullptr && !holds(*left, target)) {
        QPointer<QWidget> outer = left->isWindow() ? nullptr : left->parentWidget();
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(left, &event);
        left = outer;
    }
}

Lines mouse(Session& session, const Words& words) {
    expectWords(words, 5);
    QWidget& control = controlOf(session, words[0]);
    const MouseEventParts parts = partsOf(words[1], buttonOf(plainNumber(words[2])));
    const QPointF place(realNumber(words[3]), realNumber(words[4]));
    const bool isPress = parts.type == QEvent::MouseButtonPress;

    QWidget* target = isPress ? nullptr : session.mouseHolder.data();
    const bool isHeld = target != nullptr;
    if (!isHeld) {
        target = hit(control, place);
        pointAt(session, target);
    }
    session.mouseHolder = nullptr;
    if (target == nullptr)
        return {};
    const bool keepsMouse = isPress || (isHeld && parts.type == QEvent::MouseMove);
    if (keepsMouse)
        session.mouseHolder = target;
    if (target->isEnabled() && !pictureTakesMouse(*target, words[1]))
        send(*target, control, place, parts);
    return {};
}

} // namespace

std::span<const Command> mouseCommands() {
    static constexpr std::array commands{Command{"mouse", mouse}};
    return commands;
}

} // namespace transcript

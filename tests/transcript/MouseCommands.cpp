// The command `mouse`: presses, moves and releases through hit testing.
#include "ButtonFaces.h"
#include "Commands.h"
#include "ControlNames.h"
#include "Runner.h"

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

/// The widget at a point of `control`, which may be another one; null outside the window.
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
    Qt::MouseButton button; ///< pressed or released; none for a move
    Qt::MouseButtons held;  ///< held after the event
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

/// Moves the pointer to `target`. Sends leave events to the widgets that it leaves.
void pointAt(Runner& runner, QWidget* target) {
    QPointer<QWidget> left = runner.pointedAt;
    runner.pointedAt = target;
    while (left != nullptr && !holds(*left, target)) {
        QPointer<QWidget> outer = left->isWindow() ? nullptr : left->parentWidget();
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(left, &event);
        left = outer;
    }
}

Lines mouse(Runner& runner, const Words& words) {
    expectWords(words, 5);
    QWidget& control = controlOf(runner, words[0]);
    const MouseEventParts parts = partsOf(words[1], buttonOf(plainNumber(words[2])));
    const QPointF place(realNumber(words[3]), realNumber(words[4]));
    const bool isPress = parts.type == QEvent::MouseButtonPress;

    QWidget* target = isPress ? nullptr : runner.mouseHolder.data();
    const bool isHeld = target != nullptr;
    if (!isHeld) {
        target = hit(control, place);
        pointAt(runner, target);
    }
    runner.mouseHolder = nullptr;
    if (target == nullptr)
        return {};
    const bool keepsMouse = isPress || (isHeld && parts.type == QEvent::MouseMove);
    if (keepsMouse)
        runner.mouseHolder = target;
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

// Moving and shaping windows that have no frame of the desktop's.
#include "shell/WindowDrag.h"

#include <QMouseEvent>
#include <QRegion>
#include <QWidget>
#include <QWindow>

#include <cmath>

namespace velorin {

void SetTopMost(QWidget& window, bool topmost) {
    if (isTopMost(window) == topmost) {
        return;
    }
    // Changing the flag takes the window off the screen; it comes back where it was.
    const bool shown = !window.isHidden();
    const QPoint place = window.pos();
    window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    window.move(place);
    if (shown) {
        window.show();
    }
}

bool isTopMost(const QWidget& window) {
    return window.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

void ApplyWindowRegion(QWidget& window, int ellipse) {
    if (ellipse <= 0) {
        window.clearMask();
        return;
    }
    // One row of the corner at a time: from the first pixel that the arc touches.
    const int radius = (ellipse + 1) / 2;
    const double arc = ellipse / 2.0;
    const int w = window.width();
    const int h = window.height();
    QRegion region(0, radius, w, h - 2 * radius);
    for (int y = 0; y < radius; ++y) {
        const double dy = arc - (y + 1);
        const double dx = dy <= 0 ? arc : std::sqrt(arc * arc - dy * dy);
        const int inset = static_cast<int>(std::floor(arc - dx));
        region += QRect(inset, y, w - 2 * inset, 1);
        region += QRect(inset, h - 1 - y, w - 2 * inset, 1);
    }
    window.setMask(region);
}

WindowDrag::WindowDrag(QWidget* window) : QObject(window), window_(window) {}

void WindowDrag::watch(QWidget* handle) {
    handle->installEventFilter(this);
}

bool WindowDrag::DragWindow(Qt::MouseButtons buttons, QPoint place) {
    if (buttons.testFlag(Qt::RightButton) || !buttons.testFlag(Qt::LeftButton)) {
        return false;
    }
    QWindow* const handle = window_->windowHandle();
    following_ = handle == nullptr || !handle->startSystemMove();
    grip_ = place - window_->pos();
    return true;
}

void WindowDrag::press(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton)
        pressed_ = {event.globalPosition().toPoint(), window_->pos()};
}

void WindowDrag::move(const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        release();
        return;
    }
    const QPoint place = event.globalPosition().toPoint();
    if (pressed_ && !event.buttons().testFlag(Qt::RightButton)) {
        // What the pointer has gone until now is made up for, and the rest left to the desktop.
        if (!window_->isMaximized()) {
            window_->move(pressed_->window + place - pressed_->pointer);
        }
        DragWindow(event.buttons(), place);
    }
    pressed_.reset();
    if (following_) {
        window_->move(place - grip_);
    }
}

void WindowDrag::release() {
    pressed_.reset();
    following_ = false;
}

bool WindowDrag::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        press(*static_cast<QMouseEvent*>(event));
    } else if (event->type() == QEvent::MouseMove) {
        move(*static_cast<QMouseEvent*>(event));
    } else if (event->type() == QEvent::MouseButtonRelease) {
        release();
    }
    return QObject::eventFilter(watched, event);
}

void makeDragHandle(QWidget& title) {
    auto* const drag = new WindowDrag(title.window());
    drag->watch(&title);
}

} // namespace velorin

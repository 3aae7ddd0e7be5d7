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

bool WindowDrag::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::MouseButtonPress) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton) {
            DragWindow(mouse->buttons(), mouse->globalPosition().toPoint());
        }
    } else if (type == QEvent::MouseMove && following_) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->buttons().testFlag(Qt::LeftButton)) {
            window_->move(mouse->globalPosition().toPoint() - grip_);
        }
    } else if (type == QEvent::MouseButtonRelease) {
        following_ = false;
    }
    return QObject::eventFilter(watched, event);
}

void makeDragHandle(QWidget& title) {
    auto* const drag = new WindowDrag(title.window());
    drag->watch(&title);
}

} // namespace velorin

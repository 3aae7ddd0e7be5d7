// Moves and shapes windows without a desktop frame.
#include "windows/frame/WindowDrag.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QRegion>
#include <QWidget>
#include <QWindow>

#include <cmath>

namespace velorin {

namespace {

/// False on Wayland, where only the desktop knows the places of windows.
bool placesItsWindows() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

void SetTopMost(QWidget& window, bool topmost) {
    if (isTopMost(window) == topmost) {
        return;
    }
    // `setWindowFlags` would make the window again: it would flicker and lose the focus.
    Qt::WindowFlags flags = window.windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, topmost);
    window.overrideWindowFlags(flags);
    if (QWindow* const handle = window.windowHandle()) {
        handle->setFlag(Qt::WindowStaysOnTopHint, topmost);
    }
    if (topmost && window.isVisible()) {
        window.raise();
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
    // Each row of the corner begins at the first pixel that the arc touches.
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
    following_ = true;
    grip_ = place - window_->pos();
    if (!placesItsWindows()) {
        QWindow* const handle = window_->windowHandle();
        following_ = handle == nullptr || !handle->startSystemMove();
    }
    return true;
}

void WindowDrag::follow(const QMouseEvent& pointer) {
    if (following_ && !window_->isMaximized()) {
        window_->move(pointer.globalPosition().toPoint() - grip_);
    }
}

void WindowDrag::move(const QMouseEvent& pointer) {
    // Another window, such as a dialog that opened meanwhile, may have got the release.
    following_ = following_ && pointer.buttons().testFlag(Qt::LeftButton);
    follow(pointer);
}

void WindowDrag::release(const QMouseEvent& pointer) {
    if (pointer.button() == Qt::LeftButton) {
        follow(pointer); // a busy program may have got no move before the release
        following_ = false;
    }
}

bool WindowDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (const auto* press = static_cast<QMouseEvent*>(event);
            press->button() == Qt::LeftButton) {
            DragWindow(press->buttons(), press->globalPosition().toPoint());
        }
        break;
    case QEvent::MouseMove:
        move(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void makeDragHandle(QWidget& title) {
    auto* const drag = new WindowDrag(title.window());
    drag->watch(&title);
}

} // namespace velorin

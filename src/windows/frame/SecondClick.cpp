// Drops the second click of a double click whose first click closed a window.
#include "windows/frame/SecondClick.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace velorin {

void SecondClick::follows(const QMouseEvent& press) {
    place_ = press.globalPosition();
    timeMs_ = press.timestamp();
    dropping_ = false;
    qGuiApp->installEventFilter(this);
}

bool SecondClick::isSecond(const QMouseEvent& press) const {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const auto interval = static_cast<unsigned long long>(hints.mouseDoubleClickInterval());
    return press.timestamp() >= timeMs_ && press.timestamp() - timeMs_ <= interval &&
           (press.globalPosition() - place_).manhattanLength() <= hints.mouseDoubleClickDistance();
}

void SecondClick::stop() {
    dropping_ = false;
    qGuiApp->removeEventFilter(this);
}

// Windows get the events first and pass them on to their widgets, so only windows are watched.
bool SecondClick::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType())
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
        dropping_ = isSecond(*static_cast<QMouseEvent*>(event));
        if (!dropping_)
            stop();
        return dropping_;
    }
    if (type == QEvent::MouseButtonRelease && dropping_) {
        stop();
        return true;
    }
    return false;
}

} // namespace velorin

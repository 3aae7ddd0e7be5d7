// Runs something once, after a widget has been painted.
#include "windows/sheet/AfterPaint.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace velorin {

AfterPaint::AfterPaint(QWidget& widget, std::function<void()> action)
    : QObject(&widget), action_(std::move(action)) {
    widget.installEventFilter(this);
    widget.update(); // it may have been painted already
}

bool AfterPaint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Paint)
        return false;
    watched->removeEventFilter(this);
    QMetaObject::invokeMethod(
        this,
        [this] {
            deleteLater();
            action_();
        },
        Qt::QueuedConnection);
    return false;
}

} // namespace velorin

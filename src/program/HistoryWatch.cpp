// Watches the message loop for the history.
#include "program/HistoryWatch.h"

#include "history/History.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>

namespace velorin {

void HistoryWatch::start() {
    QCoreApplication::instance()->installEventFilter(this);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (!isHeld())
                    history_.changeFinished();
            });
}

void HistoryWatch::stop() {
    QCoreApplication::instance()->removeEventFilter(this);
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
}

bool HistoryWatch::isHeld() const {
    return QGuiApplication::mouseButtons() != Qt::NoButton || (isPenHeld && isPenHeld());
}

// If events are queued, the loop does not sleep between two of them. So a press and a key also end
// the change before them, which must not wait for the end of the next one. A second button that is
// pressed during a drag ends nothing.
bool HistoryWatch::eventFilter(QObject*, QEvent* event) {
    bool isBetween = false;
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        isBetween = press.buttons() == press.button();
    } else if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        isBetween = !isHeld();
    }
    if (isBetween)
        history_.changeFinished();
    return false;
}

} // namespace velorin

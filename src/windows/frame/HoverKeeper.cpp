// Clears the hover highlight of controls that the pointer left while a handler was running.
#include "windows/frame/HoverKeeper.h"

#include <QApplication>
#include <QMouseEvent>

namespace velorin {

HoverKeeper::HoverKeeper() {
    qApp->installEventFilter(this);
}

bool HoverKeeper::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
        forget(watched);
        if (auto* control = qobject_cast<QWidget*>(watched))
            entered_.emplace_back(control);
        break;
    case QEvent::Leave:
        forget(watched);
        break;
    case QEvent::MouseMove:
        // The window gets each move first and passes it on to its widgets.
        if (const auto& move = static_cast<const QMouseEvent&>(*event);
            watched->isWindowType() && move.buttons() == Qt::NoButton)
            leaveAllBut(move.globalPosition());
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void HoverKeeper::forget(const QObject* control) {
    std::erase_if(entered_, [control](const QPointer<QWidget>& one) {
        return one.isNull() || one.data() == control;
    });
}

void HoverKeeper::leaveAllBut(QPointF place) {
    const std::vector<QPointer<QWidget>> entered = entered_;
    for (const QPointer<QWidget>& control : entered) {
        if (!control || control->rect().contains(control->mapFromGlobal(place).toPoint()))
            continue;
        control->setAttribute(Qt::WA_UnderMouse, false);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(control, &leave);
        if (control)
            control->update();
    }
}

} // namespace velorin

// Popup menus on Qt.
#include "host/desktop/QtPopupMenus.h"

#include "platform/MessageLoop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

namespace velorin::host {

namespace {

/// While a menu is open no other window gets pointer events, so the control below it would stay
/// highlighted after the pointer has left. This sends the missing leave event.
class LeaveEventAfterMenu {
public:
    LeaveEventAfterMenu() : control_(QApplication::widgetAt(QCursor::pos())) {}
    ~LeaveEventAfterMenu() {
        if (!control_ || control_->rect().contains(control_->mapFromGlobal(QCursor::pos())))
            return;
        QEvent leave(QEvent::Leave);
        control_->setAttribute(Qt::WA_UnderMouse, false);
        QApplication::sendEvent(control_, &leave);
        control_->update();
    }
    LeaveEventAfterMenu(const LeaveEventAfterMenu&) = delete;
    LeaveEventAfterMenu& operator=(const LeaveEventAfterMenu&) = delete;

private:
    QPointer<QWidget> control_;
};

} // namespace

QtPopupMenus::QtPopupMenus(platform::MessageLoop& loop) : loop_(loop) {
    qApp->installEventFilter(this);
}

bool QtPopupMenus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
        byKey_ = event->type() == QEvent::KeyPress;
        penAt_.reset();
        if (!byKey_ && !event->spontaneous())
            penAt_ = static_cast<const QMouseEvent*>(event)->globalPosition().toPoint();
    }
    return QObject::eventFilter(watched, event);
}

QPoint QtPopupMenus::place() const {
    if (penAt_)
        return *penAt_;
    const QWidget* const control =
        byKey_ ? QApplication::focusWidget()
               : qobject_cast<QAbstractButton*>(QApplication::widgetAt(QCursor::pos()));
    if (control == nullptr)
        return QCursor::pos();
    // Below a button; inside a control that is higher than one.
    constexpr int highestButton = 60;
    constexpr QPoint inside(60, 100);
    return control->mapToGlobal(control->height() > highestButton ? inside
                                                                  : QPoint(0, control->height()));
}

std::string QtPopupMenus::PopupMenu(const std::string& menu,
                                    const std::vector<platform::PopupEntry>& entries) {
    if (loop_.isEnding())
        return {};
    QMenu popup;
    popup.setObjectName(QString::fromStdString(menu));
    popup.setAttribute(Qt::WA_TranslucentBackground, false);
    for (const platform::PopupEntry& entry : entries) {
        if (entry.isSeparator()) {
            popup.addSeparator();
            continue;
        }
        QAction* action = popup.addAction(QString::fromStdString(entry.caption));
        action->setObjectName(QString::fromStdString(entry.name));
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
    }
    const LeaveEventAfterMenu leaveEventAfterMenu;
    const QAction* chosen = popup.exec(place());
    if (chosen == nullptr || loop_.isEnding())
        return {};
    return chosen->objectName().toStdString();
}

} // namespace velorin::host

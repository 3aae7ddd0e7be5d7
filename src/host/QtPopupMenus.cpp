// Popup menus on Qt.
#include "host/QtPopupMenus.h"

#include "platform/MessageLoop.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QPointer>

namespace velorin::host {

namespace {

/// While a menu is open the window system tells nobody else where the pointer goes, so the control
/// under it would go on looking as if the pointer were there.
class PointerLeaves {
public:
    PointerLeaves() : control_(QApplication::widgetAt(QCursor::pos())) {}
    ~PointerLeaves() {
        if (!control_ || control_->rect().contains(control_->mapFromGlobal(QCursor::pos())))
            return;
        QEvent leave(QEvent::Leave);
        control_->setAttribute(Qt::WA_UnderMouse, false);
        QApplication::sendEvent(control_, &leave);
        control_->update();
    }
    PointerLeaves(const PointerLeaves&) = delete;
    PointerLeaves& operator=(const PointerLeaves&) = delete;

private:
    QPointer<QWidget> control_;
};

} // namespace

QtPopupMenus::QtPopupMenus(platform::MessageLoop& loop) : loop_(loop) {
    qApp->installEventFilter(this);
}

bool QtPopupMenus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress)
        byKey_ = event->type() == QEvent::KeyPress;
    return QObject::eventFilter(watched, event);
}

QPoint QtPopupMenus::place() const {
    const QWidget* const control = QApplication::focusWidget();
    if (!byKey_ || control == nullptr)
        return QCursor::pos();
    // Below a button, and inside of what is higher.
    constexpr int highestButton = 60;
    constexpr QPoint inside(60, 100);
    return control->mapToGlobal(control->height() > highestButton ? inside
                                                                  : control->rect().bottomLeft());
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
    const PointerLeaves pointerLeaves;
    const QAction* chosen = popup.exec(place());
    if (chosen == nullptr || loop_.isEnding())
        return {};
    return chosen->objectName().toStdString();
}

} // namespace velorin::host

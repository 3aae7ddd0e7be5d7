// Popup menus on Qt.
#include "host/QtPopupMenus.h"

#include "platform/MessageLoop.h"

#include <QCursor>
#include <QMenu>

namespace velorin::host {

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
    const QAction* chosen = popup.exec(QCursor::pos());
    if (chosen == nullptr || loop_.isEnding())
        return {};
    return chosen->objectName().toStdString();
}

} // namespace velorin::host

// Popup menus on Qt.
#pragma once

#include "platform/PopupMenus.h"

#include <QObject>
#include <QPoint>

namespace platform {
class MessageLoop;
} // namespace platform

namespace velorin::host {

/// A menu that a key has opened stands at the control that has the keyboard, any other at the
/// pointer.
class QtPopupMenus final : public QObject, public platform::PopupMenus {
public:
    explicit QtPopupMenus(platform::MessageLoop& loop);

    std::string PopupMenu(const std::string& menu,
                          const std::vector<platform::PopupEntry>& entries) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QPoint place() const;

    platform::MessageLoop& loop_;
    bool byKey_ = false; ///< the user's last press was one of a key
};

} // namespace velorin::host

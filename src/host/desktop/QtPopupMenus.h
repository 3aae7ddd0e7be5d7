// Popup menus on Qt.
#pragma once

#include "platform/PopupMenus.h"

#include <QObject>
#include <QPoint>

#include <optional>

namespace platform {
class MessageLoop;
} // namespace platform

namespace velorin::host {

/// A menu of a button appears below it. Any other appears at the pointer, or at the control that
/// has the focus if a key opened it. The pen presses like a mouse that is elsewhere than the
/// pointer: the program itself sends that event, and the menu appears there.
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
    bool byKey_ = false;          ///< the last press was a key
    std::optional<QPoint> penAt_; ///< on the screen; the last press came from the pen
};

} // namespace velorin::host

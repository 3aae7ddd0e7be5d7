// Popup menus on Qt.
#pragma once

#include "platform/PopupMenus.h"

namespace platform {
class MessageLoop;
} // namespace platform

namespace velorin::host {

class QtPopupMenus final : public platform::PopupMenus {
public:
    explicit QtPopupMenus(platform::MessageLoop& loop) : loop_(loop) {}

    std::string PopupMenu(const std::string& menu,
                          const std::vector<platform::PopupEntry>& entries) override;

private:
    platform::MessageLoop& loop_;
};

} // namespace velorin::host

// Message boxes on Qt.
#pragma once

#include "platform/Dialogs.h"

namespace velorin::host {

class QtMessageBoxes final : public platform::MessageBoxes {
public:
    void MsgBox(platform::BoxIcon icon, const std::string& title, const std::string& text) override;
    bool ask(const platform::BoxQuestion& question) override;
};

} // namespace velorin::host

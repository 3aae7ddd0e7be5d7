// Loads and unloads `Form2`, the Editing Toolbar.
#include "windows/editing/EditingToolbar.h"

#include "windows/editing/Form2.h"
#include "windows/frame/ToolWindows.h"

namespace velorin {

EditingToolbar::EditingToolbar(Session& session, ToolWindows& windows)
    : session_(session), windows_(windows) {}

EditingToolbar::~EditingToolbar() = default;

Form2& EditingToolbar::form() {
    if (!form_) {
        form_ = std::make_unique<Form2>(*this, session_, windows_);
        form_->Form_Load();
    }
    return *form_;
}

QWidget* EditingToolbar::window() {
    return form_.get();
}

QWidget& EditingToolbar::load() {
    return form();
}

void EditingToolbar::unload() {
    if (!form_) {
        return;
    }
    form_->Form_QueryUnload();
    form_->Form_Unload();
    windows_.closed.destroyLater(std::move(form_));
}

} // namespace velorin

// The Editing Toolbar as the program holds it.
#include "editing/EditingToolbar.h"

#include "editing/Form2.h"
#include "shell/ToolDesk.h"

namespace velorin {

EditingToolbar::EditingToolbar(Studio& studio, EditCommands& commands, ToolDesk& desk)
    : studio_(studio), commands_(commands), desk_(desk) {}

EditingToolbar::~EditingToolbar() = default;

Form2& EditingToolbar::form() {
    if (!form_) {
        form_ = std::make_unique<Form2>(*this, studio_, commands_, desk_);
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
    form_->hide();
    desk_.destroyLater(std::move(form_));
}

} // namespace velorin

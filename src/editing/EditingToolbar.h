// The Editing Toolbar as the program holds it: its window, `Form2`, is loaded by its first use.
#pragma once

#include "shell/ToolWindow.h"

#include <memory>

namespace velorin {

class EditCommands;
class Form2;
class ToolDesk;
struct Studio;

class EditingToolbar final : public ToolWindow {
public:
    EditingToolbar(Studio& studio, EditCommands& commands, ToolDesk& desk);
    ~EditingToolbar() override;

    /// The window, loaded if it was not; it stays hidden.
    Form2& form();

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

private:
    Studio& studio_;
    EditCommands& commands_;
    ToolDesk& desk_;
    std::unique_ptr<Form2> form_;
};

} // namespace velorin

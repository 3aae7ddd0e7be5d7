// Loads and unloads `Form2`, the Editing Toolbar.
#pragma once

#include "windows/frame/ToolWindow.h"

#include <memory>

namespace velorin {

class Form2;
class Session;
class ToolWindows;

class EditingToolbar final : public ToolWindow {
public:
    EditingToolbar(Session& session, ToolWindows& windows);
    ~EditingToolbar() override;

    /// The window, loaded if it was not; it stays hidden.
    Form2& form();

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

private:
    Session& session_;
    ToolWindows& windows_;
    std::unique_ptr<Form2> form_;
};

} // namespace velorin

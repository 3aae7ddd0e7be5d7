// Interface of a tool window: loaded on first use, shown, hidden, unloaded.
#pragma once

class QWidget;

namespace velorin {

/// Implemented for `Form3`, `Form2`, `Record` and `Wiz`, where it sets and clears the window's open
/// flag in `Run`, and for the History and Export windows.
class ToolWindow {
public:
    virtual ~ToolWindow() = default;

    /// The window, or null while it is not loaded.
    [[nodiscard]] virtual QWidget* window() = 0;

    /// The window; runs its `Form_Load` if it is not loaded. Does not show it.
    virtual QWidget& load() = 0;

    /// Runs `Form_Unload`, hides the window at once and gives it to `ClosedWindows`. Does nothing
    /// if it is not loaded.
    virtual void unload() = 0;
};

} // namespace velorin

// A tool window as the program holds it: loaded on first use, shown, hidden, unloaded.
#pragma once

class QWidget;

namespace velorin {

/// Implemented beside each window: `Form3`, `Form2`, `Record`, `Wiz`. Whoever implements it keeps
/// the window's open flag in `Run`.
class ToolWindow {
public:
    virtual ~ToolWindow() = default;

    /// The window, or null while it is not loaded.
    [[nodiscard]] virtual QWidget* window() = 0;

    /// The window; runs its `Form_Load` if it is not loaded. It is not shown by this.
    virtual QWidget& load() = 0;

    /// Runs `Form_Unload`, takes the window off the screen at once and gives it to
    /// `Program::destroyLater`. Nothing happens if it is not loaded.
    virtual void unload() = 0;
};

} // namespace velorin

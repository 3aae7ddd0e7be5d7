// What the Setup Toolbar asks of the main window: its handlers of the same names, and an end in
// order.
#pragma once

#include <memory>
#include <string>

class QWidget;

namespace velorin {

struct FrameState;

/// Implemented by `Form1`. Row [0, 13).
class SetupDesk {
public:
    virtual ~SetupDesk() = default;

    // The main window's own handlers.
    virtual void Combo1_Click() = 0;
    virtual void Combo5_Click() = 0;
    virtual void Device_Click() = 0;
    virtual void TrackSel_Click(int row) = 0;
    virtual void Form_Resize() = 0;
    virtual void DrawNoteArray() = 0;

    /// A tool window, told by its name, became the active one.
    virtual void noteActiveToolbar(const char* name) = 0;

    /// What the frames of all windows share.
    [[nodiscard]] virtual FrameState& frames() = 0;

    /// Takes a window that is off the screen, and destroys it when no handler runs any more. Never
    /// destroys it before it returns.
    virtual void destroyLater(std::unique_ptr<QWidget> window) = 0;

    /// An error that ends the run: says `text` in a message box, then runs the exit command. The
    /// process ends with a status other than 0.
    virtual void endWithError(const std::string& text) = 0;
};

} // namespace velorin

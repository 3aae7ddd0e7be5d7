// What the Setup Toolbar asks of the main window: its handlers of the same names, and an end in
// order.
#pragma once

#include "shell/ToolDesk.h"

#include <string>

namespace velorin {

/// Implemented by `Form1`. Row [0, 13).
class SetupDesk : public ToolDesk {
public:
    // The main window's own handlers.
    virtual void Combo1_Click() = 0;
    virtual void Combo5_Click() = 0;
    virtual void Device_Click() = 0;
    virtual void TrackSel_Click(int row) = 0;
    virtual void Form_Resize() = 0;
    virtual void DrawNoteArray() = 0;

    /// An error that ends the run: says `text` in a message box, then runs the exit command. The
    /// process ends with a status other than 0.
    virtual void endWithError(const std::string& text) = 0;
};

} // namespace velorin

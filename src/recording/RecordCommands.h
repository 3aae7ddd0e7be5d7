// What recording and playing files ask of the main window and of the other toolbars.
#pragma once

#include <string>

namespace velorin {

/// Implemented by `Form1`.
class RecordCommands {
public:
    virtual ~RecordCommands() = default;

    virtual void Command32_Click() = 0; ///< "Stop all": renews the MIDI output, too
    virtual void StopallSound() = 0;    ///< closes every file that plays
    virtual void PlayAndStop_Click(int index) = 0;
    virtual void OpenFile(const std::string& name) = 0;
    virtual void HideToolbars() = 0;
    virtual void ShowToolbars() = 0;

    virtual void setCheck1(bool checked) = 0; ///< the main window's copy of `Check2`
    /// The marker's box of the Editing Toolbar, if that is open.
    virtual void setChkgraphics(bool checked) = 0;

    /// Closes the MIDI output and opens device `index` in its place, once.
    virtual void openMidiOutput(int index) = 0;

    /// Makes the program's folder the current one. Returns whether it is.
    virtual bool changeToProgramFolder() = 0;
};

} // namespace velorin

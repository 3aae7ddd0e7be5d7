// The commands that the Editing Toolbar calls, each by its name.
#pragma once

#include <string>

namespace velorin {

/// Implemented by `Form1`.
class EditCommands {
public:
    virtual ~EditCommands() = default;

    virtual void mNew_Click() = 0;
    virtual void HideToolbars() = 0;
    virtual void ShowToolbars() = 0;
    virtual void Command33_Click() = 0;
    virtual void mSaveAs_Click() = 0;
    virtual void PlayAndStop_Click(int index) = 0;
    virtual void PlaySelection() = 0;
    virtual void RewindBut_Click() = 0;
    virtual void copyIt() = 0;
    virtual void CutBut_Click() = 0;
    virtual void PasteBut_Click() = 0;
    virtual void PasteIntoBut_Click() = 0;
    virtual void InsertColumnBut_Click() = 0;
    virtual void CopyNotes(int firstRow, int lastRow) = 0;
    virtual void FunctionBut_Click(int index) = 0; ///< `EditMode` and the pointer

    // The main window's copies of the number boxes.
    virtual void setText3(const std::string& text) = 0;
    virtual void setText4(const std::string& text) = 0;
    virtual void setText5(const std::string& text) = 0;
};

} // namespace velorin

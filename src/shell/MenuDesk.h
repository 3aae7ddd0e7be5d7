// What the popup menus ask of the main window: the commands under their names.
#pragma once

namespace velorin {

/// Implemented by `Form1`. Tool windows are told by their names: Form2, Form3, Record, Wiz.
class MenuDesk {
public:
    virtual ~MenuDesk() = default;

    virtual void Cmd2_Click(int index) = 0;
    virtual void CutBut_Click() = 0;
    virtual void copyIt() = 0;
    virtual void PasteIntoBut_Click() = 0;
    virtual void PasteBut_Click() = 0;
    virtual void Command33_Click() = 0;
    virtual void Command34_Click() = 0;
    virtual void Check3_Click() = 0;
    virtual void RewindBut_Click() = 0;
    virtual void PlayAndStop_Click(int index) = 0;
    virtual void Command32_Click() = 0;
    virtual void Cmdhelp_Click() = 0;
    virtual void Command3_Click() = 0;
    virtual void Form_Resize() = 0;

    virtual void showToolbar(const char* name) = 0;   ///< loads it if it is not loaded
    virtual void unloadToolbar(const char* name) = 0; ///< nothing if it is not loaded

    [[nodiscard]] virtual bool isBeatboxVisible() = 0;
    virtual void setBeatboxVisible(bool visible) = 0;
};

} // namespace velorin

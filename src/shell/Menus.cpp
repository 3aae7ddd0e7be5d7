// The five popup menus as data.
#include "shell/Menus.h"

#include "shell/Frmmenu.h"
#include "shell/MenuDesk.h"

#include <array>

namespace velorin {

namespace {

constexpr std::array popup1{
    MenuEntry{"mnuNew", "Clear All", [](Frmmenu& menu) { menu.desk().Cmd2_Click(1); }},
    MenuEntry{"mnuSpc5", "", nullptr},
    MenuEntry{"mnuCut", "Cut selection", [](Frmmenu& menu) { menu.desk().CutBut_Click(); }},
    MenuEntry{"mnuCopy", "Copy selection", [](Frmmenu& menu) { menu.desk().copyIt(); }},
    MenuEntry{"mnuPasteInsert", "Paste (insert)",
              [](Frmmenu& menu) { menu.desk().PasteIntoBut_Click(); }},
    MenuEntry{"mnuPasteoverwrite", "Paste (overwrite)",
              [](Frmmenu& menu) { menu.desk().PasteBut_Click(); }},
    MenuEntry{"mnuSpc6", "", nullptr},
    MenuEntry{"mnuOpen", "Open File", [](Frmmenu& menu) { menu.desk().Command33_Click(); }},
    MenuEntry{"mnuSaveAs2", "Save as", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    MenuEntry{"mnuSave2", "Save", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    MenuEntry{"mnuspace1", "", nullptr},
    MenuEntry{"mnuCancel", "Cancel", nullptr},
};

constexpr std::array popup2{
    MenuEntry{"mnuClearall", "Clear All", [](Frmmenu& menu) { menu.desk().Cmd2_Click(1); }},
    MenuEntry{"mnuFile", "File", [](Frmmenu& menu) { menu.desk().Command33_Click(); }},
    MenuEntry{"mnuSave", "Save", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    MenuEntry{"mnutoggle", "Erase/Menu toggle", [](Frmmenu& menu) { menu.desk().Check3_Click(); }},
    MenuEntry{"mnuSpc7", "", nullptr},
    MenuEntry{"mnuRewind", "Rewind", [](Frmmenu& menu) { menu.desk().RewindBut_Click(); }},
    MenuEntry{"mnuPlay", "Play", [](Frmmenu& menu) { menu.desk().PlayAndStop_Click(0); }},
    MenuEntry{"mnuStopPlaying", "Stop Playing",
              [](Frmmenu& menu) { menu.desk().PlayAndStop_Click(1); }},
    MenuEntry{"mnuStopall", "Stop all sound", [](Frmmenu& menu) { menu.desk().Command32_Click(); }},
    MenuEntry{"mnuspc8", "", nullptr},
    MenuEntry{"mnuSetup", "Setup Toolbar", [](Frmmenu& menu) { menu.desk().showToolbar("Form3"); }},
    MenuEntry{"mnuEdittool", "Editing Toolbar",
              [](Frmmenu& menu) { menu.desk().showToolbar("Form2"); }},
    MenuEntry{"mnuRecordtool", "Recording Toolbar",
              [](Frmmenu& menu) { menu.desk().showToolbar("Record"); }},
    MenuEntry{"mnuspc9", "", nullptr},
    MenuEntry{"mnuTutorial", "Tutorial", [](Frmmenu& menu) { menu.desk().showToolbar("Wiz"); }},
    MenuEntry{"mnuHelp", "Help", [](Frmmenu& menu) { menu.desk().Cmdhelp_Click(); }},
    MenuEntry{"mnuExit", "Exit", [](Frmmenu& menu) { menu.desk().Command3_Click(); }},
};

constexpr std::array popup3{
    MenuEntry{"mnuHelpfile", "Help", [](Frmmenu& menu) { menu.desk().Cmdhelp_Click(); }},
};

constexpr std::array popup4{
    MenuEntry{"mnuSetupToolBar", "Setup Toolbar", [](Frmmenu& menu) { menu.toggleForm3(); }},
    MenuEntry{"mnuPercussion", "Percussion Tableau", [](Frmmenu& menu) { menu.toggleBeatbox(); }},
    MenuEntry{"mnuPolyphonics", "Polyphonics Tableau", [](Frmmenu& menu) { menu.togglePoly(); }},
};

constexpr std::array popup5{
    MenuEntry{"mnuerase", "Erase on Right-click", [](Frmmenu& menu) { menu.setRightClick(0); }},
    MenuEntry{"mnuMenu", "Menu on Right-Click", [](Frmmenu& menu) { menu.setRightClick(1); }},
    MenuEntry{"mnuPoli", "Set Polynotes on Right-Click",
              [](Frmmenu& menu) { menu.setRightClick(2); }},
};

constexpr std::array<PopupTable, 5> popups{{
    {"mnupopup", popup1},
    {"mnupopup2", popup2},
    {"mnupopup3", popup3},
    {"mnupopup4", popup4},
    {"mnupopup5", popup5},
}};

} // namespace

PopupTable popupTable(int number) {
    return popups.at(static_cast<std::size_t>(number - 1));
}

const MenuEntry* findMenuEntry(std::string_view name) {
    for (const PopupTable& popup : popups) {
        for (const MenuEntry& entry : popup.entries) {
            if (name == entry.name) {
                return &entry;
            }
        }
    }
    return nullptr;
}

} // namespace velorin

// The five popup menus.
#include "windows/texts/MenuTable.h"

#include <array>

namespace velorin {

namespace {

constexpr std::array editingMenu{
    MenuText{"mnuNew", "Clear All"},
    MenuText{"mnuSpc5", ""},
    MenuText{"mnuCut", "Cut selection"},
    MenuText{"mnuCopy", "Copy selection"},
    MenuText{"mnuPasteInsert", "Paste (insert)"},
    MenuText{"mnuPasteoverwrite", "Paste (overwrite)"},
    MenuText{"mnuSpc6", ""},
    MenuText{"mnuOpen", "Open File"},
    MenuText{"mnuSaveAs2", "Save as"},
    MenuText{"mnuSave2", "Save"},
    MenuText{"mnuspace1", ""},
    MenuText{"mnuCancel", "Cancel"},
};

constexpr std::array programMenu{
    MenuText{"mnuClearall", "Clear All"},
    MenuText{"mnuFile", "File"},
    MenuText{"mnuSave", "Save"},
    MenuText{"mnutoggle", "Erase/Menu toggle"},
    MenuText{"mnuSpc7", ""},
    MenuText{"mnuRewind", "Rewind"},
    MenuText{"mnuPlay", "Play"},
    MenuText{"mnuStopPlaying", "Stop Playing"},
    MenuText{"mnuStopall", "Stop all sound"},
    MenuText{"mnuspc8", ""},
    MenuText{"mnuSetup", "Setup Toolbar"},
    MenuText{"mnuEdittool", "Editing Toolbar"},
    MenuText{"mnuRecordtool", "Recording Toolbar"},
    MenuText{"mnuspc9", ""},
    MenuText{"mnuTutorial", "Tutorial"},
    MenuText{"mnuHelp", "Help"},
    MenuText{"mnuExit", "Exit"},
};

constexpr std::array helpMenu{
    MenuText{"mnuHelpfile", "Help"},
};

constexpr std::array toolsMenu{
    MenuText{"mnuSetupToolBar", "Setup Toolbar"},
    MenuText{"mnuPercussion", "Percussion Tableau"},
    MenuText{"mnuPolyphonics", "Polyphonics Tableau"},
};

constexpr std::array rightClickMenu{
    MenuText{"mnuerase", "Erase on Right-click"},
    MenuText{"mnuMenu", "Menu on Right-Click"},
    MenuText{"mnuPoli", "Set Polynotes on Right-Click"},
};

constexpr std::array<MenuTexts, 5> menus{{
    {"mnupopup", editingMenu},
    {"mnupopup2", programMenu},
    {"mnupopup3", helpMenu},
    {"mnupopup4", toolsMenu},
    {"mnupopup5", rightClickMenu},
}};

} // namespace

MenuTexts menuTexts(int number) {
    return menus.at(static_cast<std::size_t>(number - 1));
}

const MenuText* findMenuText(std::string_view name) {
    for (const MenuTexts& menu : menus)
        for (const MenuText& entry : menu.entries)
            if (name == entry.name)
                return &entry;
    return nullptr;
}

} // namespace velorin

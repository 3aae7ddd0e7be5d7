// What each entry of the popup menus does.
#include "shell/Menus.h"

#include "score/Run.h"
#include "shell/Frmmenu.h"
#include "shell/MenuDesk.h"

#include <array>

namespace velorin {

namespace {

struct NamedAction {
    const char* name;
    MenuAction run;
};

// In the order of the menus.
constexpr std::array actions{
    NamedAction{"mnuNew", [](Frmmenu& menu) { menu.desk().Cmd2_Click(1); }},
    NamedAction{"mnuCut", [](Frmmenu& menu) { menu.desk().CutBut_Click(); }},
    NamedAction{"mnuCopy", [](Frmmenu& menu) { menu.desk().copyIt(); }},
    NamedAction{"mnuPasteInsert", [](Frmmenu& menu) { menu.desk().PasteIntoBut_Click(); }},
    NamedAction{"mnuPasteoverwrite", [](Frmmenu& menu) { menu.desk().PasteBut_Click(); }},
    NamedAction{"mnuOpen", [](Frmmenu& menu) { menu.desk().Command33_Click(); }},
    NamedAction{"mnuSaveAs2", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    NamedAction{"mnuSave2", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    NamedAction{"mnuClearall", [](Frmmenu& menu) { menu.desk().Cmd2_Click(1); }},
    NamedAction{"mnuFile", [](Frmmenu& menu) { menu.desk().Command33_Click(); }},
    NamedAction{"mnuSave", [](Frmmenu& menu) { menu.desk().Command34_Click(); }},
    NamedAction{"mnutoggle", [](Frmmenu& menu) { menu.desk().Check3_Click(); }},
    NamedAction{"mnuRewind", [](Frmmenu& menu) { menu.desk().RewindBut_Click(); }},
    NamedAction{"mnuPlay", [](Frmmenu& menu) { menu.desk().PlayAndStop_Click(0); }},
    NamedAction{"mnuStopPlaying", [](Frmmenu& menu) { menu.desk().PlayAndStop_Click(1); }},
    NamedAction{"mnuStopall", [](Frmmenu& menu) { menu.desk().Command32_Click(); }},
    NamedAction{"mnuSetup", [](Frmmenu& menu) { menu.desk().showToolbar("Form3"); }},
    NamedAction{"mnuEdittool", [](Frmmenu& menu) { menu.desk().showToolbar("Form2"); }},
    NamedAction{"mnuRecordtool", [](Frmmenu& menu) { menu.desk().showToolbar("Record"); }},
    NamedAction{"mnuTutorial", [](Frmmenu& menu) { menu.desk().showToolbar("Wiz"); }},
    NamedAction{"mnuHelp", [](Frmmenu& menu) { menu.desk().Cmdhelp_Click(); }},
    NamedAction{"mnuExit", [](Frmmenu& menu) { menu.desk().Command3_Click(); }},
    NamedAction{"mnuHelpfile", [](Frmmenu& menu) { menu.desk().Cmdhelp_Click(); }},
    NamedAction{"mnuSetupToolBar", [](Frmmenu& menu) { menu.toggleForm3(); }},
    NamedAction{"mnuPercussion", [](Frmmenu& menu) { menu.toggleBeatbox(); }},
    NamedAction{"mnuPolyphonics", [](Frmmenu& menu) { menu.togglePoly(); }},
    NamedAction{"mnuerase", [](Frmmenu& menu) { menu.setRightClick(rightClick::erase); }},
    NamedAction{"mnuMenu", [](Frmmenu& menu) { menu.setRightClick(rightClick::menu); }},
    NamedAction{"mnuPoli", [](Frmmenu& menu) { menu.setRightClick(rightClick::polynotes); }},
};

} // namespace

MenuAction menuAction(std::string_view name) {
    for (const NamedAction& action : actions) {
        if (name == action.name) {
            return action.run;
        }
    }
    return nullptr;
}

} // namespace velorin

// `Frmmenu`, the owner of the popup menus, never shown itself.
#include "windows/main/Frmmenu.h"

#include "platform/MessageLoop.h"
#include "platform/PopupMenus.h"
#include "session/Session.h"
#include "windows/frame/ToolWindows.h"
#include "windows/main/Form1.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/MenuTable.h"

namespace velorin {

struct Frmmenu::Action {
    const char* name;
    void (*run)(Frmmenu&);
};

// The handlers of all entries, in the order of the menus.
//
// Rule: every "Save" entry asks for a file name, as "Save as" does. Held by shell/menu_entries.
//
// Rule: "Erase/Menu toggle" changes no mode. It only shows the current mode on its button again.
// Held by shell/menu_entries.
const Frmmenu::Action Frmmenu::actions[] = {
    {"mnuNew", [](Frmmenu& menu) { menu.form_.Cmd2_Click(mainButton::clear); }},
    {"mnuCut", [](Frmmenu& menu) { menu.session_.edits.CutBut_Click(); }},
    {"mnuCopy", [](Frmmenu& menu) { menu.session_.edits.copyIt(); }},
    {"mnuPasteInsert", [](Frmmenu& menu) { menu.session_.edits.PasteIntoBut_Click(); }},
    {"mnuPasteoverwrite", [](Frmmenu& menu) { menu.session_.edits.PasteBut_Click(); }},
    {"mnuOpen", [](Frmmenu& menu) { menu.session_.files.Command33_Click(); }},
    {"mnuSaveAs2", [](Frmmenu& menu) { menu.session_.files.Command34_Click(); }},
    {"mnuSave2", [](Frmmenu& menu) { menu.session_.files.Command34_Click(); }},
    {"mnuClearall", [](Frmmenu& menu) { menu.form_.Cmd2_Click(mainButton::clear); }},
    {"mnuFile", [](Frmmenu& menu) { menu.session_.files.Command33_Click(); }},
    {"mnuSave", [](Frmmenu& menu) { menu.session_.files.Command34_Click(); }},
    {"mnutoggle", [](Frmmenu& menu) { menu.form_.Check3_Click(); }},
    {"mnuRewind", [](Frmmenu& menu) { menu.session_.sequencer.RewindBut_Click(); }},
    {"mnuPlay", [](Frmmenu& menu) { menu.session_.sequencer.PlayAndStop_Click(0); }},
    {"mnuStopPlaying", [](Frmmenu& menu) { menu.session_.sequencer.PlayAndStop_Click(1); }},
    {"mnuStopall", [](Frmmenu& menu) { menu.session_.sounding.Command32_Click(); }},
    {"mnuSetup", [](Frmmenu& menu) { menu.windows_.show(Tool::setup); }},
    {"mnuEdittool", [](Frmmenu& menu) { menu.windows_.show(Tool::editing); }},
    {"mnuRecordtool", [](Frmmenu& menu) { menu.windows_.show(Tool::recording); }},
    {"mnuTutorial", [](Frmmenu& menu) { menu.windows_.show(Tool::tutorial); }},
    {"mnuHelp", [](Frmmenu& menu) { menu.form_.Cmdhelp_Click(); }},
    {"mnuExit", [](Frmmenu& menu) { menu.form_.Command3_Click(); }},
    {"mnuHelpfile", [](Frmmenu& menu) { menu.form_.Cmdhelp_Click(); }},
    {"mnuSetupToolBar", [](Frmmenu& menu) { menu.toggleForm3(); }},
    {"mnuPercussion", [](Frmmenu& menu) { menu.toggleBeatbox(); }},
    {"mnuPolyphonics", [](Frmmenu& menu) { menu.togglePoly(); }},
    {"mnuerase", [](Frmmenu& menu) { menu.setRightClick(rightClick::erase); }},
    {"mnuMenu", [](Frmmenu& menu) { menu.setRightClick(rightClick::menu); }},
    {"mnuPoli", [](Frmmenu& menu) { menu.setRightClick(rightClick::polynotes); }},
};

Frmmenu::Frmmenu(Session& session, ToolWindows& windows, Form1& form)
    : session_(session), windows_(windows), form_(form), studio_(session.studio) {}

void Frmmenu::load() {
    if (!loaded_) {
        checked_.clear();
        loaded_ = true;
    }
}

void Frmmenu::unload() {
    loaded_ = false;
}

void Frmmenu::Command1_Click() {
    load();
    popup(2);
}

void Frmmenu::Command2_Click() {
    load();
    popup(1);
}

void Frmmenu::Command3_Click() {
    load();
    popup(3);
}

void Frmmenu::Command4_Click() {
    load();
    check("mnuSetupToolBar", studio_.run.Form3Open.isSet());
    check("mnuPercussion", !form_.area->Beatbox->isHidden());
    check("mnuPolyphonics", studio_.view.PolyOpen.isSet());
    popup(4);
}

void Frmmenu::Command5_Click() {
    load();
    check("mnuerase", studio_.run.RightClickMode == rightClick::erase);
    check("mnuMenu", studio_.run.RightClickMode == rightClick::menu);
    check("mnuPoli", studio_.run.RightClickMode == rightClick::polynotes);
    popup(5);
}

void Frmmenu::Form_Click() {
    Command2_Click();
}

void Frmmenu::click(const std::string& name) {
    if (const Action* const action = actionOf(name))
        action->run(*this);
}

bool Frmmenu::hasAction(const std::string& name) {
    return actionOf(name) != nullptr;
}

const Frmmenu::Action* Frmmenu::actionOf(const std::string& name) {
    for (const Action& action : actions)
        if (name == action.name)
            return &action;
    return nullptr;
}

void Frmmenu::toggleForm3() {
    if (studio_.run.Form3Open.isSet()) {
        windows_.unload(Tool::setup);
    } else {
        windows_.show(Tool::setup);
    }
}

void Frmmenu::toggleBeatbox() {
    PictureBox& strip = *form_.area->Beatbox;
    strip.setVisible(strip.isHidden());
    form_.layout.Form_Resize();
}

// Rule: the box `Form3.Chkpoly` does not follow this entry. Held by shell/row_options.
void Frmmenu::togglePoly() {
    const bool open = !studio_.view.PolyOpen.isSet();
    studio_.view.PolyOpen = toFlag(open);
    check("mnuPolyphonics", open);
    studio_.platform.loop.Yield();
    form_.layout.Form_Resize();
}

void Frmmenu::setRightClick(int mode) {
    studio_.run.RightClickMode = static_cast<std::int16_t>(mode);
    form_.Check3_Click();
}

void Frmmenu::popup(int number) {
    const MenuTexts table = menuTexts(number);
    std::vector<platform::PopupEntry> entries;
    entries.reserve(table.entries.size());
    for (const MenuText& entry : table.entries) {
        entries.push_back({entry.name, entry.caption, isChecked(entry.name)});
    }
    const std::string chosen = studio_.platform.menus.PopupMenu(table.name, entries);
    if (!studio_.platform.loop.isEnding()) {
        click(chosen);
    }
    unload();
}

void Frmmenu::check(const char* name, bool checked) {
    if (checked) {
        checked_.insert(name);
    } else {
        checked_.erase(name);
    }
}

} // namespace velorin

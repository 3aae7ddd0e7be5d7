// `Frmmenu`, the hidden owner of the popup menus.
#include "shell/Frmmenu.h"

#include "controls/MenuTable.h"
#include "platform/MessageLoop.h"
#include "platform/PopupMenus.h"
#include "score/Studio.h"
#include "shell/MenuDesk.h"
#include "shell/Menus.h"

namespace velorin {

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
    check("mnuSetupToolBar", studio_.run.Form3Open != flagClear);
    check("mnuPercussion", desk_.isBeatboxVisible());
    check("mnuPolyphonics", studio_.view.PolyOpen != flagClear);
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
    if (const MenuAction run = menuAction(name)) {
        run(*this);
    }
}

void Frmmenu::toggleForm3() {
    if (studio_.run.Form3Open != flagClear) {
        desk_.unloadToolbar("Form3");
    } else {
        desk_.showToolbar("Form3");
    }
}

void Frmmenu::toggleBeatbox() {
    desk_.setBeatboxVisible(!desk_.isBeatboxVisible());
    desk_.Form_Resize();
}

void Frmmenu::togglePoly() {
    const bool open = studio_.view.PolyOpen == flagClear;
    studio_.view.PolyOpen = open ? flagSet : flagClear;
    check("mnuPolyphonics", open);
    studio_.platform.loop.Yield();
    desk_.Form_Resize();
}

void Frmmenu::setRightClick(int mode) {
    studio_.run.RightClickMode = static_cast<std::int16_t>(mode);
    desk_.Check3_Click();
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

// `Frmmenu`, the hidden owner of the popup menus: loaded for a popup, and unloaded when it returns.
#pragma once

#include <set>
#include <string>

namespace velorin {

class MenuDesk;
struct Studio;

class Frmmenu {
public:
    Frmmenu(Studio& studio, MenuDesk& desk) : studio_(studio), desk_(desk) {}

    // Its hidden buttons. Each shows one popup, runs what was chosen, and unloads the window.
    void Command1_Click(); ///< popup 2, the program
    void Command2_Click(); ///< popup 1, the editing
    void Command3_Click(); ///< popup 3, the help
    void Command4_Click(); ///< popup 4, what is shown; its check marks tell the present state
    void Command5_Click(); ///< popup 5, the right-click mode
    void Form_Click();     ///< a click on the window itself: popup 1

    /// Runs the handler of the entry `name`, "mnuCut". Nothing for a name that no menu has.
    void click(const std::string& name);

    void load(); ///< clears every check mark; nothing if it is loaded
    void unload();
    [[nodiscard]] bool isLoaded() const { return loaded_; }
    [[nodiscard]] bool isChecked(const std::string& name) const { return checked_.contains(name); }

    // What the entries of the menus' table are made of.
    [[nodiscard]] MenuDesk& desk() { return desk_; }
    void toggleForm3();
    void toggleBeatbox();
    void togglePoly();
    void setRightClick(int mode); ///< one of `rightClick`

private:
    void popup(int number);
    void check(const char* name, bool checked);

    Studio& studio_;
    MenuDesk& desk_;
    bool loaded_ = false;
    std::set<std::string, std::less<>> checked_; ///< names of the entries with a check mark
};

} // namespace velorin

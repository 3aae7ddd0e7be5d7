// `Frmmenu`, the owner of the popup menus, never shown itself: loaded for a popup, and unloaded
// when the popup returns.
//
//   Command1 to Command5  open the popups mnupopup2, mnupopup, mnupopup3, mnupopup4, mnupopup5
//   mnupopup              popup 1: editing
//   mnupopup2             popup 2: the whole program
//   mnupopup3             popup 3: help
//   mnupopup4             popup 4: what is shown
//   mnupopup5             popup 5: what a right click does
//   mnuFile               "File" of popup 2: opens a score
//   mnuSave2, mnuSaveAs2  "Save" and "Save as" of popup 1
//   mnuSpc5 to mnuspc9, mnuspace1  separators
#pragma once

#include <set>
#include <string>

namespace velorin {

class Form1;
class Session;
class ToolWindows;
struct Studio;

class Frmmenu {
public:
    Frmmenu(Session& session, ToolWindows& windows, Form1& form);

    // Each shows one popup, runs the chosen entry and unloads the window.
    void Command1_Click(); ///< popup 2, the program
    void Command2_Click(); ///< popup 1, the editing
    void Command3_Click(); ///< popup 3, the help
    void Command4_Click(); ///< popup 4, what is shown; check marks show the current state
    void Command5_Click(); ///< popup 5, the right-click mode
    void Form_Click();     ///< popup 1. Called by its name in transcripts only.

    /// Runs the handler of the entry `name`, such as "mnuCut". Does nothing for an unknown name.
    void click(const std::string& name);
    /// True if `click` runs a handler for that name.
    [[nodiscard]] static bool hasAction(const std::string& name);

    void load(); ///< clears every check mark; does nothing if it is loaded
    void unload();
    [[nodiscard]] bool isLoaded() const { return loaded_; }
    [[nodiscard]] bool isChecked(const std::string& name) const { return checked_.contains(name); }

private:
    struct Action;
    static const Action actions[];
    static const Action* actionOf(const std::string& name);

    void toggleForm3();
    void toggleBeatbox();
    void togglePoly();
    void setRightClick(int mode); ///< one of `rightClick`
    void popup(int number);
    void check(const char* name, bool checked);

    Session& session_;
    ToolWindows& windows_;
    Form1& form_;
    Studio& studio_;
    bool loaded_ = false;
    std::set<std::string, std::less<>> checked_; ///< names of the entries with a check mark
};

} // namespace velorin

// The keys: the list of all of them.
#include "controls/KeyTable.h"

namespace velorin {

namespace {

constexpr std::array windowKeys{nextWindowKey, previousWindowKey, menuKey, helpKey};

constexpr std::array controlKeys{
    Key{"Tab, Shift+Tab", "Goes to the next control, or back. A blue frame shows where you are."},
    Key{"Space", "Presses the button that has the frame; elsewhere it plays and stops."},
    Key{"Enter",
        "Presses the button that has the frame, or chooses the entry of a menu or a list."},
    Key{"Arrow keys", "Move inside lists, menus, options, tabs and scroll bars."},
    Key{"Esc", "Closes a menu, an open list or a dialog, and changes nothing."},
};

constexpr std::array helpKeys{
    Key{"Ctrl+F", "Goes to the search."},
    Key{"Alt+Left", "Goes back to the page before."},
    Key{"Esc", "Closes the help."},
};

constexpr std::array<KeySection, 5> sections{{
    {"In the main window and the toolbars", mainKeys},
    {"Editing, in the same windows", editKeys},
    {"Windows and menus", windowKeys},
    {"At the controls", controlKeys},
    {"In the help", helpKeys},
}};

std::string keysOfButton(std::span<const Key> keys, std::string_view control) {
    for (const Key& key : keys)
        for (const int button : {key.button, key.buttonInPlay})
            if (control == "Cmd2(" + std::to_string(button) + ")")
                return key.keys;
    return {};
}

} // namespace

std::span<const KeySection> keySections() {
    return sections;
}

std::string keysOf(std::string_view window, std::string_view control) {
    if (window == "Form1")
        return keysOfButton(mainKeys, control);
    return window == "Form2" ? keysOfButton(editKeys, control) : std::string();
}

} // namespace velorin

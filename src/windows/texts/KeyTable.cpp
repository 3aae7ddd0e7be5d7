// The key table: all keys, by section.
#include "windows/texts/KeyTable.h"

namespace velorin {

namespace {

constexpr std::array windowKeys{nextWindowKey, previousWindowKey, arrangeKey, menuKey, helpKey};

constexpr std::array controlKeys{
    Key{"Tab, Shift+Tab", "Goes to the next control, or back. A blue frame shows where you are."},
    Key{"Space", "Presses the button that has the frame; elsewhere it plays and stops."},
    Key{"Enter",
        "Presses the button that has the frame, or chooses the entry of a menu or a list."},
    Key{"Arrow keys", "Move inside lists, menus, options, tabs and scroll bars."},
    Key{"Esc", "Closes a menu, an open list or a dialog, and changes nothing."},
};

constexpr std::array penKeys{
    Key{"Arrows", "Show the pen, and move it by one column or line. It scrolls at the edges."},
    Key{"Ctrl+Left, Ctrl+Right", "Move the pen by a bar."},
    Key{"Page Up, Page Down", "Move the pen by an octave."},
    Key{"Home, End", "Move the pen to the first or the last visible column."},
    Key{"Enter", "Presses the left button at the pen. Hold it and press arrows to draw a longer "
                 "note, or to select."},
    Key{"Delete", "Presses the right button at the pen."},
    Key{"Esc", "Puts the pen away. Without a pen it stops all sound."},
};

constexpr std::array helpKeys{
    Key{"Ctrl+F", "Goes to the search."},
    Key{"Alt+Left", "Goes back to the page before."},
    Key{"Esc", "Closes the help."},
};

/// The keys without their commands.
template <class Keys>
constexpr auto plain(const Keys& given) {
    std::array<Key, std::tuple_size_v<Keys>> keys{};
    for (std::size_t i = 0; i < keys.size(); ++i)
        keys[i] = given[i].key;
    return keys;
}
constexpr auto plainFileKeys = plain(fileKeys);
constexpr auto plainHistoryKeys = plain(historyKeys);
constexpr auto plainKeyboardKeys = plain(keyboardKeys);
constexpr auto plainHearingKeys = plain(hearingKeys);

constexpr std::array<KeySection, 10> sections{{
    {"In the main window and the toolbars", mainKeys},
    {"Files, in the same windows", plainFileKeys},
    {"Editing, in the same windows", editKeys},
    {"History, in the same windows", plainHistoryKeys},
    {"MIDI keyboard, in the same windows", plainKeyboardKeys},
    {"Hearing, in the same windows", plainHearingKeys},
    {"Windows and menus", windowKeys},
    {"At the controls", controlKeys},
    {"The pen, in a tableau", penKeys},
    {"In the help", helpKeys},
}};

std::string keysOfButton(std::span<const Key> keys, std::string_view control) {
    for (const Key& key : keys)
        for (const int button : {key.button, key.buttonInPlay})
            if (control == "Cmd2(" + std::to_string(button) + ")")
                return key.keys;
    return {};
}

template <class Keys>
std::string keysOfCommand(const Keys& keys, std::string_view control) {
    for (const auto& key : keys)
        if (control == key.control)
            return key.key.keys;
    return {};
}

std::string keysOfMainWindow(std::string_view control) {
    for (const std::string& keys :
         {keysOfButton(mainKeys, control), keysOfCommand(historyKeys, control),
          keysOfCommand(fileKeys, control)})
        if (!keys.empty())
            return keys;
    return {};
}

} // namespace

std::span<const KeySection> keySections() {
    return sections;
}

std::string keysOf(std::string_view window, std::string_view control) {
    if (window == "Form1")
        return keysOfMainWindow(control);
    return window == "Form2" ? keysOfButton(editKeys, control) : std::string();
}

} // namespace velorin

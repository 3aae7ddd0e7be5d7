// The keys: what each presses and what is told of it, in one table for the windows, the help and
// the man page.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace velorin {

struct Key {
    const char* keys; ///< in the portable notation, "Ctrl+N"
    const char* meaning;
    int button = 0;       ///< the button that the keys press; 0 for what is no button
    int buttonInPlay = 0; ///< the button that they press while the song plays

    /// Whether it is a key of writing, which the control that has the focus may want for itself.
    [[nodiscard]] constexpr bool isTyped() const {
        return std::string_view(keys).size() == 1 || std::string_view(keys) == "Space";
    }
};

/// Those of the main toolbar, in the main window and in the tool windows.
constexpr std::array<Key, 5> mainKeys{{
    {"Ctrl+N", "Clears all notes", 1, 1},
    {"Ctrl+O", "Opens a score", 2, 2},
    {"Ctrl+S", "Saves the score or a MIDI file", 3, 3},
    {"Space", "Plays the notes, and stops them while they play", 6, 7},
    {"Esc", "Stops all sound", 8, 8},
}};

/// Those of the Editing Toolbar, in the same windows, whether it is open or not. Duplicate has
/// none: it cuts the song behind its pattern, which must not happen to a user who tries Ctrl+D.
constexpr std::array<Key, 6> editKeys{{
    {"Ctrl+C", "Copies the selection", 12, 12},
    {"Ctrl+X", "Cuts the selection", 13, 13},
    {"Ctrl+V", "Pastes at the marker, over what is there", 14, 14},
    {"Ctrl+Shift+V", "Pastes at the marker, and moves what is there to the right", 15, 15},
    {"P", "Pauses", 6, 6},
    {"F2", "Changes between drawing and selecting", 11, 11},
}};

/// The window keys of the program, in every window.
constexpr Key nextWindowKey{"F6", "Goes to the next window of the program"};
constexpr Key previousWindowKey{"Shift+F6", "Goes to the window before"};

/// In the main window and in the tool windows.
constexpr Key menuKey{"Shift+F10", "Opens the menu of commands, in select mode that of editing"};
constexpr Key helpKey{"F1", "Opens the help"};

/// A part of the list of keys.
struct KeySection {
    const char* heading;
    std::span<const Key> keys;
};

/// All keys, as the help and the man page list them.
[[nodiscard]] std::span<const KeySection> keySections();

/// The keys that press a button, "Ctrl+N"; empty if there are none.
[[nodiscard]] std::string keysOf(std::string_view window, std::string_view control);

} // namespace velorin

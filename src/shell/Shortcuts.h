// The keys of the main window and of the Editing Toolbar, in one place: what they press, and how a
// screen reader tells of them.
#pragma once

#include <QString>

#include <array>

namespace velorin {

struct Shortcut {
    const char* keys; ///< in the portable notation, "Ctrl+N"
    int button;       ///< the button that the keys press
    int buttonInPlay; ///< the button that they press while the song plays
    const char* meaning;
};

/// Those of the main toolbar.

constexpr std::array<Shortcut, 5> shortcuts{{
    {"Ctrl+N", 1, 1, "Clears all notes"},
    {"Ctrl+O", 2, 2, "Opens a score"},
    {"Ctrl+S", 3, 3, "Saves the score or a MIDI file"},
    {"Space", 6, 7, "Plays the notes, and stops them while they play"},
    {"Esc", 8, 8, "Stops all sound"},
}};

/// Those of the Editing Toolbar, in both windows.
constexpr std::array<Shortcut, 7> editShortcuts{{
    {"Ctrl+C", 12, 12, "Copies the selection"},
    {"Ctrl+X", 13, 13, "Cuts the selection"},
    {"Ctrl+V", 14, 14, "Pastes at the marker, over what is there"},
    {"Ctrl+Shift+V", 15, 15, "Pastes at the marker, and moves what is there to the right"},
    {"Ctrl+D", 17, 17, "Duplicates the notes, in select mode"},
    {"P", 6, 6, "Pauses"},
    {"F2", 11, 11, "Changes between drawing and selecting"},
}};

/// The keys of a table that press a button, for its accessible description; empty if there are
/// none.
template <std::size_t Count>
[[nodiscard]] QString shortcutsOf(const std::array<Shortcut, Count>& table, int button) {
    for (const Shortcut& shortcut : table)
        if (shortcut.button == button || shortcut.buttonInPlay == button)
            return QLatin1String(shortcut.keys);
    return {};
}

} // namespace velorin

// The keys of the main window, in one table: what they press, and how a screen reader tells of
// them.
#pragma once

#include <QString>

#include <array>

namespace velorin {

struct Shortcut {
    const char* keys; ///< in the portable notation, "Ctrl+N"
    int button;       ///< the button of the main toolbar that the keys press
    int buttonInPlay; ///< the button that they press while the song plays
};

constexpr std::array<Shortcut, 5> shortcuts{{
    {"Ctrl+N", 1, 1}, // clears all notes
    {"Ctrl+O", 2, 2}, // opens a score
    {"Ctrl+S", 3, 3}, // saves the score
    {"Space", 6, 7},  // plays; stops what plays
    {"Esc", 8, 8},    // stops all sound
}};

/// The keys that press a button, for its accessible description; empty if there are none.
[[nodiscard]] inline QString shortcutsOfButton(int button) {
    for (const Shortcut& shortcut : shortcuts)
        if (shortcut.button == button || shortcut.buttonInPlay == button)
            return QLatin1String(shortcut.keys);
    return {};
}

} // namespace velorin

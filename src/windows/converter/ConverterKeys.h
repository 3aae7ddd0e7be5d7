// The keys of the converter's window.
#pragma once

#include <array>

namespace velorin {

struct ConverterKey {
    const char* keys; ///< in Qt's portable notation
    const char* meaning;
};

/// In the order of the help page and the manual page.
inline constexpr std::array converterKeys{
    ConverterKey{"Ctrl+O", "Adds files"},
    ConverterKey{"Ctrl+Shift+O", "Adds a folder"},
    ConverterKey{"Enter", "Starts, and cancels while it works"},
    ConverterKey{"Esc", "Cancels"},
    ConverterKey{"Delete", "Takes the file at the cursor out of the list, or stops it"},
    ConverterKey{"Ctrl+Enter", "Opens the file at the cursor in Velorin"},
    ConverterKey{"Ctrl+P", "Plays what was made of it"},
    ConverterKey{"Ctrl+F", "Shows it in its folder"},
    ConverterKey{"Shift+F10", "Opens the menu of the file at the cursor"},
    ConverterKey{"F1", "Opens the help"},
};

} // namespace velorin

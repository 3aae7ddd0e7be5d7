// The five popup menus as data: the entries in their order, and what each one does.
#pragma once

#include <span>
#include <string_view>

namespace velorin {

class Frmmenu;

struct MenuEntry {
    const char* name;
    const char* caption;   ///< empty for a separator
    void (*run)(Frmmenu&); ///< null for a separator, and for the entry that only closes the menu
};

struct PopupTable {
    const char* name;
    std::span<const MenuEntry> entries;
};

/// Popup `number` [1, 5].
[[nodiscard]] PopupTable popupTable(int number);

/// The entry of that name in any of the menus; null if there is none.
[[nodiscard]] const MenuEntry* findMenuEntry(std::string_view name);

} // namespace velorin

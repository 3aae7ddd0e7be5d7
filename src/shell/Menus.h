// What each entry of the popup menus does.
#pragma once

#include <string_view>

namespace velorin {

class Frmmenu;

using MenuAction = void (*)(Frmmenu&);

/// Null for a name that no menu has, for a separator, and for the entry that only closes the menu.
[[nodiscard]] MenuAction menuAction(std::string_view name);

} // namespace velorin

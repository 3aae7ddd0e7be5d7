// The five popup menus: their entries in order, with captions.
#pragma once

#include <span>
#include <string_view>

namespace velorin {

struct MenuText {
    const char* name;
    const char* caption; ///< empty for a separator

    [[nodiscard]] constexpr bool isSeparator() const { return *caption == '\0'; }
};

struct MenuTexts {
    const char* name;
    std::span<const MenuText> entries;
};

/// Popup `number` [1, 5].
[[nodiscard]] MenuTexts menuTexts(int number);

/// The menu of a tool window's title, and its only entry.
constexpr char titleMenu[] = "title";
constexpr MenuText arrangeEntry{"arrange", "Arrange"};

/// The entry called `name` in any menu; null if there is none.
[[nodiscard]] const MenuText* findMenuText(std::string_view name);

} // namespace velorin

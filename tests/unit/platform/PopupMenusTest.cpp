// A menu of a list: its marks, and the place of what the user chose.
#include "platform/PopupMenus.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

class ScriptedMenus final : public platform::PopupMenus {
public:
    explicit ScriptedMenus(std::string answer) : answer_(std::move(answer)) {}

    std::string PopupMenu(const std::string& menu,
                          const std::vector<platform::PopupEntry>& entries) override {
        shown = menu;
        for (const platform::PopupEntry& entry : entries) {
            shown += entry.checked ? ";*" : ";";
            shown += entry.caption;
        }
        return answer_;
    }

    std::string shown;

private:
    std::string answer_;
};

} // namespace

TEST(ChooseFrom, GivesThePlaceOfTheChosenOne) {
    ScriptedMenus menus("2");
    EXPECT_EQ(platform::chooseFrom(menus, "keys", {"One", "Two", "Two"}, 1), 2U);
    EXPECT_EQ(menus.shown, "keys;One;*Two;Two");
}

TEST(ChooseFrom, GivesNothingIfNoneWasChosen) {
    ScriptedMenus menus("");
    EXPECT_EQ(platform::chooseFrom(menus, "keys", {"One", "Two"}), std::nullopt);
    EXPECT_EQ(menus.shown, "keys;One;Two");
}

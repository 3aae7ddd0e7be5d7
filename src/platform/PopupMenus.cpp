// Popup menus of lists.
#include "platform/PopupMenus.h"

namespace platform {

std::optional<std::size_t> chooseFrom(PopupMenus& menus, const std::string& menu,
                                      const std::vector<std::string>& captions,
                                      std::optional<std::size_t> checked) {
    std::vector<PopupEntry> entries;
    entries.reserve(captions.size());
    for (const std::string& caption : captions)
        entries.push_back({std::to_string(entries.size()), caption, entries.size() == checked});
    const std::string chosen = menus.PopupMenu(menu, entries);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].name == chosen)
            return i;
    }
    return std::nullopt;
}

} // namespace platform

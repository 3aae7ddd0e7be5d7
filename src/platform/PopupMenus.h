// Popup menus: a list of entries shown under the pointer, of which the user chooses one or none.
#pragma once

#include <string>
#include <vector>

namespace platform {

struct PopupEntry {
    std::string name;    ///< the entry's name in the program, "mnuCut"
    std::string caption; ///< empty for a separator
    bool checked = false;

    [[nodiscard]] bool isSeparator() const { return caption.empty(); }
};

class PopupMenus {
public:
    virtual ~PopupMenus() = default;
    /// Modal; serves events meanwhile. Returns the name of the entry chosen, or nothing if none
    /// was, or if the program ends meanwhile.
    virtual std::string PopupMenu(const std::string& menu,
                                  const std::vector<PopupEntry>& entries) = 0;
};

} // namespace platform

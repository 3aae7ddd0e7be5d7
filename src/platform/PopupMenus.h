// Popup menus: the user chooses one of the entries, or none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct PopupEntry {
    std::string name;    ///< the entry's fixed name, "mnuCut"
    std::string caption; ///< empty for a separator
    bool checked = false;

    [[nodiscard]] bool isSeparator() const { return caption.empty(); }
};

class PopupMenus {
public:
    virtual ~PopupMenus() = default;
    /// Modal; events are processed meanwhile. Returns the name of the chosen entry; empty if none
    /// was chosen or the program ends meanwhile.
    virtual std::string PopupMenu(const std::string& menu,
                                  const std::vector<PopupEntry>& entries) = 0;
};

/// Lets the user choose from a list. The entries are named by their place in it, "0" the first; the
/// one at `checked` has a mark. Returns the place of the chosen one; no value if none was chosen or
/// the program ends meanwhile.
[[nodiscard]] std::optional<std::size_t> chooseFrom(PopupMenus& menus, const std::string& menu,
                                                    const std::vector<std::string>& captions,
                                                    std::optional<std::size_t> checked = {});

} // namespace platform

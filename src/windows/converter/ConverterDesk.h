// What the converter's window asks of the desktop around it.
#pragma once

#include "platform/Dialogs.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velorin {

/// User-interface thread only. A dialog runs an event loop of its own, so that files are converted
/// meanwhile. Paths are UTF-8.
struct ConverterDesk {
    std::function<std::vector<std::string>()> chooseFiles; ///< empty: cancelled
    /// A folder of files, or one for new files, by the title of the dialog.
    std::function<std::optional<std::string>(const std::string& title)> chooseFolder;
    std::function<bool(const platform::BoxQuestion&)> ask;
    std::function<void(const std::string& file)> openInVelorin;
    std::function<void(const std::string& file)> openFile; ///< with the desktop's program for it
    std::function<void(const std::string& file)> showInFolder;
    std::function<void()> openHelp;
};

} // namespace velorin

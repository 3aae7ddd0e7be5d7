// Dialogs that choose several files, or a folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace platform {
class Settings;
} // namespace platform

namespace velorin::host {

/// Modal to `parent`; its folder is remembered in `settings`, with that of the other dialogs.
/// `filter` is as Qt's dialogs take it: "Sound (*.wav *.mp3)". Empty if the user cancels.
[[nodiscard]] std::vector<std::string> chooseFiles(QWidget* parent, platform::Settings& settings,
                                                   const std::string& title,
                                                   const std::string& filter);

/// The same for an existing folder. No value if the user cancels.
[[nodiscard]] std::optional<std::string> chooseFolder(QWidget* parent, platform::Settings& settings,
                                                      const std::string& title);

} // namespace velorin::host

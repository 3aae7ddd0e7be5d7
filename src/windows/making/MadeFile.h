// How windows show a file that was made: its size and its folder.
#pragma once

#include <filesystem>
#include <string>

namespace velorin {

/// "0.9 MB"; below 0.1 MB "12 KB", at least 1.
[[nodiscard]] std::string sizeText(double bytes);

/// A folder as the user reads it: one in `home` without that beginning, "Music/Velorin". `home`
/// itself is "~".
[[nodiscard]] std::string shownFolder(const std::filesystem::path& folder,
                                      const std::filesystem::path& home);

} // namespace velorin

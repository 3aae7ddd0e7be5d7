// The files that the converter takes from what the user drops or chooses.
#pragma once

#include <filesystem>
#include <vector>

namespace velorin {

/// True for a folder, and for a file with the ending sng, mid, midi or wav, in any case. A folder
/// may turn out to have no such file.
[[nodiscard]] bool isUsable(const std::filesystem::path& path);

/// The usable files of `paths`, with those in folders and their subfolders, ordered by name within
/// each folder. Hidden files in folders are left out. What does not exist is left out as well.
[[nodiscard]] std::vector<std::filesystem::path>
usableFiles(const std::vector<std::filesystem::path>& paths);

} // namespace velorin

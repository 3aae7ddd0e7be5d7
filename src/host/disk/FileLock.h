// A lock on a file that ends with the process, and the names in a folder.
#pragma once

#include "host/disk/DurableFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

/// Creates the file if it is missing, and locks it. The result is not open if another process holds
/// the lock (`errno` is EWOULDBLOCK), or if the file cannot be created or locked. The lock ends
/// with the descriptor, and so with the process.
[[nodiscard]] Descriptor lockFile(const std::filesystem::path& path);

/// The same for a file that exists; the result is also not open if it is missing.
[[nodiscard]] Descriptor lockExistingFile(const std::filesystem::path& path);

/// The names in a folder, unsorted; none if it cannot be read.
[[nodiscard]] std::vector<std::string> listFolder(const std::filesystem::path& folder);

} // namespace velorin::host

// The files of one folder as far as keeping needs them: locks that end with their process, and
// listing.
#pragma once

#include "host/DurableFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

/// Makes the file if it is missing and locks it. Not open if another process holds the lock, with
/// `errno` EWOULDBLOCK, or if the file cannot be made or locked. The lock ends with the descriptor,
/// and so with the process.
[[nodiscard]] Descriptor lockFile(const std::filesystem::path& path);

/// The names in a folder, in no order; none if it cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace velorin::host

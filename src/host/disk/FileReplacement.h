// Replacing a file so that at any moment, whatever fails, the old or the new one is whole.
#pragma once

#include "platform/WriteError.h"

#include <filesystem>
#include <string>

namespace velorin::host {

/// What becomes of the old file's bytes after the last new one.
enum class OldTail { dropped, kept };

/// Writes a hidden file in the same folder and renames it:
///
///     old file   |------------- whole -------------|
///     temp file       write ... sync   (whole) rename, sync the folder
///     new file                             |------ whole ------
///
/// Permissions and owner stay; a symbolic link stays, and the file that it leads to is replaced.
/// Where the folder takes no new file, the file is written in place; if that fails, its old bytes
/// are put back. On an error the old file is as it was, unless the error is `damaged`, and no new
/// file is left.
[[nodiscard]] platform::WriteError replaceFile(const std::filesystem::path& path,
                                               const std::string& bytes,
                                               OldTail tail = OldTail::dropped);

} // namespace velorin::host

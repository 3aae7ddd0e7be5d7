// Case-insensitive file look-up, for names that the program may have lower-cased.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

// Both turn a name of the program's (UTF-8) into a path of the host. If no file has exactly that
// name, every '\' separates like '/', except in a part of the path that exists with its '\'. The
// file itself need not exist.

/// For a file to be read. If the exact name does not exist, each missing part of the path is
/// replaced by one that differs in case only: the first in byte order if there are several.
/// `lowerCase` in Text.h says which letters have a case.
[[nodiscard]] std::filesystem::path resolve(const std::string& name);

/// For a file to be written: the folders are looked up as above, but the file's own name stays, so
/// that no other file is overwritten.
[[nodiscard]] std::filesystem::path resolveForWriting(const std::string& name);

/// A path for the user: each '\\' that the program itself has added ("\\Songs") becomes the host's
/// separator.
[[nodiscard]] std::string shownPath(std::string name);

} // namespace platform

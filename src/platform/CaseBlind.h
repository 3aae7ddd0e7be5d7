// Finding a file on a host that minds case, by a name that the program may have lower-cased.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

// Both turn a name of the program's (UTF-8) into the host's path. Where the name is not there as it
// is, every '\' separates as '/' does; a part of the path that is there under its own name with
// its '\' is taken as it is. The result is also the path of a file yet to be made.

/// For a file to be read: where the exact name is not there, each part of the path that is not
/// there either is replaced by one that differs in case only (ASCII and the letters that the host's
/// own lower-casing covers; the first in byte order if there are several).
[[nodiscard]] std::filesystem::path resolve(const std::string& name);

/// For a file to be written: the folders are looked up as above, but the file's own name is kept,
/// so that no other file is replaced by it.
[[nodiscard]] std::filesystem::path resolveForWriting(const std::string& name);

/// What the program itself adds to a folder's name ("\\Songs"), with the host's separator for each
/// '\\': so the user sees it, and can paste it elsewhere.
[[nodiscard]] std::string shownPath(std::string name);

} // namespace platform

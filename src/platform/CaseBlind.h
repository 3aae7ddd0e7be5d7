// Finding a file on a host that minds case, by a name that the program may have lower-cased.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

/// The host's path for a name of the program's (UTF-8): every '\' is a separator; where the exact
/// name is not there, each part of the path that is not there either is replaced by one that
/// differs in case only (ASCII and the letters that the host's own lower-casing covers; the first
/// in byte order if there are several). Parts that cannot be found stay as they are, so the result
/// is also the path of a file yet to be made.
[[nodiscard]] std::filesystem::path resolve(const std::string& name);

} // namespace platform

// Reads one directory for each part of the path that does not exist under its exact name.
#include "platform/PathLookup.h"

#include "platform/Text.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace platform {

namespace fs = std::filesystem;

namespace {

/// A dangling link exists too.
bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

fs::path separated(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

/// A part of a path, with its own separators: "a\\b" is "a/b", and "\\a" does not lead to the root.
fs::path dividedPart(const fs::path& part) {
    return part.has_root_directory() ? part : separated(part.string()).relative_path();
}

/// The entry of `folder` that differs from `name` in case only; `name` itself if there is none.
fs::path entryIgnoringCase(const fs::path& folder, const fs::path& name) {
    const std::string wanted = lowerCase(name.string());
    fs::path found = name;
    bool any = false;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const fs::path entry = it->path().filename();
        if (lowerCase(entry.string()) != wanted)
            continue;
        if (!any || entry < found)
            found = entry;
        any = true;
    }
    return found;
}

/// Follows the parts of `rest` below `found`, which is empty for a relative path.
fs::path foundIgnoringCase(fs::path found, const fs::path& rest) {
    for (const fs::path& part : rest) {
        const fs::path next = found / part;
        if (isThere(next))
            found = next;
        else
            found /= entryIgnoringCase(found.empty() ? fs::path(".") : found, part);
    }
    return found;
}

} // namespace

fs::path resolve(const std::string& name) {
    fs::path exact(name);
    if (exact.empty() || isThere(exact))
        return exact;
    fs::path divided = separated(name);
    if (isThere(divided))
        return divided;
    fs::path found;
    for (const fs::path& part : exact) {
        if (const fs::path next = found / part; isThere(next))
            found = next;
        else
            found = foundIgnoringCase(found,
                                      found.empty() ? separated(part.string()) : dividedPart(part));
    }
    return found;
}

fs::path resolveForWriting(const std::string& name) {
    fs::path exact(name);
    if (exact.empty() || isThere(exact))
        return exact;
    // The last '\' or '/' ends the folder's name, which may hold more of them.
    const std::size_t end = name.find_last_of("/\\");
    if (end == std::string::npos)
        return exact;
    return resolve(name.substr(0, std::max<std::size_t>(end, 1))) / name.substr(end + 1);
}

std::string shownPath(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

} // namespace platform

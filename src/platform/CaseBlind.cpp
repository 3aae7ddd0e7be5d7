// Case-blind look-up: one directory is read for each part of the path that is not there under its
// exact name.
#include "platform/CaseBlind.h"

#include "platform/Text.h"

#include <algorithm>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

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

} // namespace

fs::path resolve(const std::string& name) {
    std::string separated = name;
    std::replace(separated.begin(), separated.end(), '\\', '/');
    const fs::path exact(separated);
    std::error_code error;
    if (exact.empty() || fs::exists(exact, error))
        return exact;

    fs::path found;
    for (const fs::path& part : exact) {
        const fs::path next = found / part;
        if (fs::exists(next, error)) {
            found = next;
            continue;
        }
        found /= entryIgnoringCase(found.empty() ? fs::path(".") : found, part);
    }
    return found;
}

} // namespace platform

// Folders from the environment.
#include "host/files/UserFolders.h"

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

// The convention says that a relative path in the variable is ignored.
fs::path folderOf(const char* variable, const char* home, const char* inHome) {
    const fs::path named = variable != nullptr ? variable : "";
    if (named.is_absolute())
        return named / "velorin";
    const fs::path users = home != nullptr ? home : "";
    return users.is_absolute() ? users / ".local" / inHome / "velorin" : fs::path();
}

} // namespace

fs::path dataFolder(const char* xdgDataHome, const char* home) {
    return folderOf(xdgDataHome, home, "share");
}

fs::path stateFolder(const char* xdgStateHome, const char* home) {
    return folderOf(xdgStateHome, home, "state");
}

} // namespace velorin::host

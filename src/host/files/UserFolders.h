// The folders of a user, by the XDG convention.
#pragma once

#include <filesystem>

namespace velorin::host {

// The first argument is the value of the variable that names the folder, the second that of HOME;
// null for none. Empty if there is neither.

/// For data of the user: "$XDG_DATA_HOME/velorin" or "~/.local/share/velorin".
[[nodiscard]] std::filesystem::path dataFolder(const char* xdgDataHome, const char* home);

/// For state that is kept between runs: "$XDG_STATE_HOME/velorin" or "~/.local/state/velorin".
[[nodiscard]] std::filesystem::path stateFolder(const char* xdgStateHome, const char* home);

} // namespace velorin::host

// What the user reads about a score that was not saved.
#pragma once

#include "platform/HistoryStore.h"

#include <string>

namespace velorin {

/// Where the score is now. A click on the notice opens it.
[[nodiscard]] std::string recoveryText(const platform::RecoveredFile& recovered);

} // namespace velorin

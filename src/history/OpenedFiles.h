// The scores that were opened or saved last.
#pragma once

#include "platform/HistoryStore.h"

#include <string>
#include <vector>

namespace velorin {

/// The files of at most ten scores that were opened or saved, the last one first, each once. Names
/// of opened files are in lower case, those of saved files as the user typed them; a name that
/// differs only in case counts as the same. `entries` with the oldest first. No file is looked at.
[[nodiscard]] std::vector<std::string>
openedFiles(const std::vector<platform::HistoryEntry>& entries);

} // namespace velorin

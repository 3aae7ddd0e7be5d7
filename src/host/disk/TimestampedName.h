// Names of files that begin with a word and hold a date and a time.
#pragma once

#include <ctime>
#include <string>

namespace velorin::host {

/// "WORD 2026-11-20 10-45-01", in local time; a second file of the same second gets a counter,
/// "WORD 2026-11-20 10-45-01 (2)".
[[nodiscard]] std::string timestampedName(const std::string& word, std::time_t moment, int count);

} // namespace velorin::host

// Finding and setting a key in the text of an INI file. Everything else stays as it is.
#pragma once

#include <optional>
#include <string>

namespace velorin::host {

/// The value after the first "key=" in the first section of that name, without surrounding blanks.
/// Sections and keys are case-insensitive.
[[nodiscard]] std::optional<std::string>
iniValue(const std::string& text, const std::string& section, const std::string& key);

/// The text with that key set. A missing section is added at the end.
[[nodiscard]] std::string withIniValue(const std::string& text, const std::string& section,
                                       const std::string& key, const std::string& value);

} // namespace velorin::host

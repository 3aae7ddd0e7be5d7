// The text of an INI file: finding a key in it and setting one, everything else left as it is.
#pragma once

#include <optional>
#include <string>

namespace velorin::host {

/// The value behind the first "key=" of the first section of that name, without blanks around it.
/// Sections and keys do not mind case.
[[nodiscard]] std::optional<std::string>
iniValue(const std::string& text, const std::string& section, const std::string& key);

/// The same text with that key set; the section is added at the end if it is not there.
[[nodiscard]] std::string withIniValue(const std::string& text, const std::string& section,
                                       const std::string& key, const std::string& value);

} // namespace velorin::host

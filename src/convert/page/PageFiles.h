// The files that a page is made of, compiled in.
#pragma once

#include <string_view>

namespace velorin::convert {

extern const std::string_view pageTemplate; ///< with "{{name}}" where a value is put
extern const std::string_view pageStyle;
extern const std::string_view pageScript;

// The hashes of the style sheet and the script for the security policy: "sha256-...".
extern const std::string_view pageStyleHash;
extern const std::string_view pageScriptHash;

} // namespace velorin::convert

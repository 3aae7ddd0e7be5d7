// The bytes of a file that a transcript names.
#pragma once

#include <string>

namespace transcript {

class Session;

/// Throws `CommandError` if there is no such file.
[[nodiscard]] std::string contentOf(Session& session, const std::string& word);

} // namespace transcript

// The bytes of a file that a transcript names.
#pragma once

#include <string>

namespace transcript {

class Runner;

/// Throws `CommandError` if there is no such file.
[[nodiscard]] std::string contentOf(Runner& runner, const std::string& word);

} // namespace transcript

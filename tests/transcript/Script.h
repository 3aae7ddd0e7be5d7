// A transcript file: commands, their expected answers, and comments between them.
#pragma once

#include "Words.h"

#include <string>
#include <vector>

namespace transcript {

/// One command with its expected answer, or a line that is only kept.
struct Step {
    int line = 0; ///< counted from 1
    bool isCommand = false;
    std::string text; ///< the command without "> ", or the unchanged line
    Lines expected;
};

using Script = std::vector<Step>;

/// Throws `CommandError` if the file cannot be read.
[[nodiscard]] Script readScript(const std::string& path);
[[nodiscard]] Script parseScript(const std::string& text);

/// Runs all commands of a script in a new session. Returns the answers, one entry per step.
[[nodiscard]] std::vector<Lines> answersOf(const Script& script);

/// The script with the actual answers instead of the expected ones.
[[nodiscard]] std::string printed(const Script& script, const std::vector<Lines>& answers);

/// The differences as text; empty if there are none.
[[nodiscard]] std::string differences(const std::string& path, const Script& script,
                                      const std::vector<Lines>& answers);

} // namespace transcript

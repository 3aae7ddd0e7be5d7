// A transcript as a file: commands, what each must print, and the lines between that are for
// readers.
#pragma once

#include "Words.h"

#include <string>
#include <vector>

namespace transcript {

/// One command with what it must print, or a line that is only kept.
struct Step {
    int line = 0; ///< counted from 1
    bool isCommand = false;
    std::string text; ///< the command without "> ", or the line as it stands
    Lines expected;
};

using Script = std::vector<Step>;

/// Throws `CommandError` if the file cannot be read.
[[nodiscard]] Script readScript(const std::string& path);
[[nodiscard]] Script parseScript(const std::string& text);

/// Runs each command of a script in a session of its own. Returns the answers, one entry a step.
[[nodiscard]] std::vector<Lines> answersOf(const Script& script);

/// The script with the answers in place of what was expected.
[[nodiscard]] std::string printed(const Script& script, const std::vector<Lines>& answers);

/// What differs, as text for a reader; empty if nothing does.
[[nodiscard]] std::string differences(const std::string& path, const Script& script,
                                      const std::vector<Lines>& answers);

} // namespace transcript

// The commands of the transcript language, one table for each subject.
#pragma once

#include "Words.h"

#include <span>

namespace transcript {

class Runner;

struct Command {
    const char* name;
    /// `words` are those after the name. Returns the output, before folders are replaced.
    Lines (*run)(Runner& runner, const Words& words);
    bool printsFiles = false; ///< its answer is text of a file, so separators do not change
};

[[nodiscard]] std::span<const Command> timeCommands();
[[nodiscard]] std::span<const Command> deviceCommands();
[[nodiscard]] std::span<const Command> dialogCommands();
[[nodiscard]] std::span<const Command> fileCommands();
[[nodiscard]] std::span<const Command> gridCommands();
[[nodiscard]] std::span<const Command> historyCommands();
[[nodiscard]] std::span<const Command> controlCommands();
[[nodiscard]] std::span<const Command> mouseCommands();
[[nodiscard]] std::span<const Command> pictureCommands();
[[nodiscard]] std::span<const Command> callCommands();

/// Finds and runs a command; returns the lines as they are printed. Throws `CommandError`.
[[nodiscard]] Lines carryOut(Runner& runner, const Words& words);

} // namespace transcript

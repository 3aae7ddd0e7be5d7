// The commands of the transcript language, one table for each subject.
#pragma once

#include "Words.h"

#include <span>

namespace transcript {

class Session;

struct Command {
    const char* name;
    /// `words` are those behind the name. Returns what is printed, before folders are marked.
    Lines (*run)(Session& session, const Words& words);
    bool printsFiles = false; ///< its answer is text out of a file: separators stay as they are
};

[[nodiscard]] std::span<const Command> timeCommands();
[[nodiscard]] std::span<const Command> deviceCommands();
[[nodiscard]] std::span<const Command> dialogCommands();
[[nodiscard]] std::span<const Command> fileCommands();
[[nodiscard]] std::span<const Command> gridCommands();
[[nodiscard]] std::span<const Command> controlCommands();
[[nodiscard]] std::span<const Command> mouseCommands();
[[nodiscard]] std::span<const Command> pictureCommands();
[[nodiscard]] std::span<const Command> callCommands();

/// Finds and runs a command; returns the lines as they are printed. Throws `CommandError`.
[[nodiscard]] Lines carryOut(Session& session, const Words& words);

} // namespace transcript

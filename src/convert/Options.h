// What the command line of the converter asks for.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::convert {

enum class Kind { mid, wav, png, sng };

struct Task {
    std::string score;
    std::filesystem::path target;
    Kind kind = Kind::wav;
};

struct Options {
    bool help = false;
    bool version = false;
    int rateHz = 44100;
    std::filesystem::path soundFont; ///< empty: the first one that the machine has
    std::vector<Task> tasks;
    bool makesFolder = false;     ///< `--out` was given
    bool mayReplaceScore = false; ///< `-o` was given: a score may be rewritten in its own place
    std::string problem;          ///< why the command line cannot be followed; empty if it can
};

/// `arguments` without the program's own name.
[[nodiscard]] Options readOptions(const std::vector<std::string>& arguments);

/// The text of `--help`.
[[nodiscard]] std::string helpText();

} // namespace velorin::convert

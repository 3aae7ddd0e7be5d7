// The writers of score files, in the last stage of the format.
#pragma once

#include <string>

namespace velorin {

struct Score;

/// The whole file, 37 lines that end in CR LF. Hidden rows are written like the others.
[[nodiscard]] std::string scoreText(const Score& score);

/// The same file as the program keeps it for itself: each lane begins with entry 0, so that a score
/// that is read back has its chord marks where they stood, and not one column to the left.
[[nodiscard]] std::string keptText(const Score& score);

/// False for a score with neither notes nor chord marks.
[[nodiscard]] bool isWorthKeeping(const Score& score);

} // namespace velorin

// The writers of score files, in the latest version of the format.
#pragma once

#include <string>

namespace velorin {

struct Score;

/// The whole file, 37 lines that end in CR LF. Hidden rows are written like the others.
[[nodiscard]] std::string scoreText(const Score& score);

/// The same file for crash recovery and for comparing scores. Each lane begins with entry 0, so the
/// chord marks are read back in their own columns and not one to the left.
[[nodiscard]] std::string keptText(const Score& score);

/// The same file with nothing left out: instruments under the rests after the last note too. A
/// reader that starts with cleared grids gets every cell back; the history keeps this text.
[[nodiscard]] std::string exactText(const Score& score);

/// False for a score with neither notes nor chord marks.
[[nodiscard]] bool isWorthKeeping(const Score& score);

} // namespace velorin

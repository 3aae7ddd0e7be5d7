// The writer of score files, in the last stage of the format.
#pragma once

#include <string>

namespace velorin {

struct Score;

/// The whole file, 37 lines that end in CR LF. Hidden rows are written like the others.
[[nodiscard]] std::string scoreText(const Score& score);

} // namespace velorin

// How values and texts are printed in a transcript.
#pragma once

#include "Words.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace transcript {

/// A text as answer lines, one for each line of it; CR LF, CR and LF each end a line.
[[nodiscard]] Lines linesOf(const std::string& text);

[[nodiscard]] inline Lines answer(bool value) {
    return {value ? "-1" : "0"};
}
[[nodiscard]] inline Lines answer(std::int64_t value) {
    return {std::to_string(value)};
}
[[nodiscard]] inline Lines answer(int value) {
    return {std::to_string(value)};
}
[[nodiscard]] Lines answer(float value);  ///< up to seven significant digits
[[nodiscard]] Lines answer(double value); ///< up to fifteen
[[nodiscard]] inline Lines answer(const std::string& value) {
    return linesOf(value);
}

/// "0A FF 00": capital pairs with one blank between them.
[[nodiscard]] std::string hexOf(std::string_view bytes);

/// The CRC-32 that ZIP and PNG use, as eight capital digits.
[[nodiscard]] std::string crcOf(std::string_view bytes);

/// A line as it is printed: the folder as '@' with the separators of that path as '/', an empty
/// line as `""`, and a backslash before what would look like a command or a comment.
[[nodiscard]] std::string printedLine(const std::string& line, const std::string& folder);

/// The same without any change of separators, for lines out of a file.
[[nodiscard]] std::string printedFileLine(const std::string& line, const std::string& folder);

} // namespace transcript

// Prints values and texts for a transcript.
#pragma once

#include "Words.h"
#include "studio/Flag.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace transcript {

/// A text as answer lines. CR LF, CR and LF each end a line.
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
[[nodiscard]] inline Lines answer(velorin::Flag value) {
    return {std::to_string(value.number)};
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

/// A line as it is printed: the folder is '@' and its path has '/' as separator, an empty line is
/// `""`, and a line that looks like a command or a comment gets a backslash.
[[nodiscard]] std::string printedLine(const std::string& line, const std::string& folder);

/// The same with unchanged separators, for lines of a file.
[[nodiscard]] std::string printedFileLine(const std::string& line, const std::string& folder);

} // namespace transcript

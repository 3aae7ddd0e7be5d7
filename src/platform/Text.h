// Text to number and back, the same in every locale, and the few text operations that the program's
// own rules need.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The number that a text begins with. Leading blanks are skipped; sign, digits, one decimal point
/// and an exponent (E or D) are known; anything else, a blank too, ends the number. 0 if there are
/// no digits. A number too large for a double is infinity.
[[nodiscard]] double Val(std::string_view text);

/// `number` rounded to the nearest whole number, halves to even; no value if that lies outside 16
/// bits.
[[nodiscard]] std::optional<std::int16_t> toInt16(double number);

/// `toInt16(Val(text))`: how the program reads a number from a field, a box or a setting.
[[nodiscard]] std::optional<std::int16_t> readInt16(std::string_view text);

/// Halves go to even: 2.5 is 2, 3.5 is 4.
[[nodiscard]] double roundHalfEven(double number);

/// Of UTF-8 text: the letters of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic; all else
/// stays as it is.
[[nodiscard]] std::string lowerCase(std::string_view text);

/// Without the blanks (20 hex) at both ends; other white space stays.
[[nodiscard]] std::string trimBlanks(std::string_view text);

/// True if `text` ends in `ending`, where case does not count.
[[nodiscard]] bool endsWithIgnoringCase(std::string_view text, std::string_view ending);

/// `name` with `ending` (".sng") added, unless it ends in it already, where case does not count.
[[nodiscard]] std::string withEnding(std::string_view name, std::string_view ending);

} // namespace platform

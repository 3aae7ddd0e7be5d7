// Number parsing and text operations that are the same in every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The number that a text begins with. Leading blanks are skipped; sign, digits, one decimal point
/// and an exponent (E or D) belong to the number; anything else, a blank too, ends it. 0 if there
/// are no digits. A number too large for a double is infinity.
[[nodiscard]] double Val(std::string_view text);

/// `number` rounded to the nearest whole number, halves to even; no value if that does not fit into
/// 16 bits.
[[nodiscard]] std::optional<std::int16_t> toInt16(double number);

/// `toInt16(Val(text))`: how the program reads a number from a field, a box or a setting.
[[nodiscard]] std::optional<std::int16_t> readInt16(std::string_view text);

/// Rounds halves to even: 2.5 is 2, 3.5 is 4.
[[nodiscard]] double roundHalfEven(double number);

/// The number of bytes [1, 4] of the UTF-8 character that begins at byte `at`; 0 if none does.
[[nodiscard]] std::size_t utf8Length(std::string_view text, std::size_t at);

/// UTF-8. Lower-cases the letters of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic; all else
/// stays as it is.
[[nodiscard]] std::string lowerCase(std::string_view text);

/// Removes the blanks (20 hex) at both ends; other white space stays.
[[nodiscard]] std::string trimBlanks(std::string_view text);

/// True if `text` ends in `ending`, ignoring case.
[[nodiscard]] bool endsWithIgnoringCase(std::string_view text, std::string_view ending);

/// `name` with `ending` (".sng") added, unless it already ends in it, ignoring case.
[[nodiscard]] std::string withEnding(std::string_view name, std::string_view ending);

} // namespace platform

// Converts booleans and window positions to the texts of the settings store, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// The section of the store in which all of the program's settings are.
constexpr char settingsSection[] = "Settings";

/// "True" or "False".
[[nodiscard]] std::string settingText(bool value);

/// A position in twips, in single precision: at most seven digits, whole numbers without a point.
[[nodiscard]] std::string settingText(float twips);

/// "True" and "False" in any case; a number is true if it is not 0. No value for any other text.
[[nodiscard]] std::optional<bool> settingBoolean(std::string_view text);

/// The number at the beginning of the text, in twips. No value for a text without digits, or for a
/// number too large for single precision.
[[nodiscard]] std::optional<float> settingTwips(std::string_view text);

} // namespace velorin

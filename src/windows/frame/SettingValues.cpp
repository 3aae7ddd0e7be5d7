// Converts booleans and window positions to the texts of the settings store, and back.
#include "windows/frame/SettingValues.h"

#include "platform/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace velorin {

namespace {

bool hasDigit(std::string_view text) {
    return text.find_first_of("0123456789") != std::string_view::npos;
}

} // namespace

std::string settingText(bool value) {
    return value ? "True" : "False";
}

std::string settingText(float twips) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), twips,
                                   std::chars_format::general, 7);
    return {digits.data(), end.ptr};
}

std::optional<bool> settingBoolean(std::string_view text) {
    const std::string word = platform::lowerCase(platform::trimBlanks(text));
    if (word == "true") {
        return true;
    }
    if (word == "false") {
        return false;
    }
    if (!hasDigit(word) || word.find_first_not_of("+-.0123456789") != std::string::npos) {
        return std::nullopt;
    }
    return platform::Val(word) != 0.0;
}

std::optional<float> settingTwips(std::string_view text) {
    const double number = platform::Val(text);
    if (!hasDigit(text) || std::fabs(number) > std::numeric_limits<float>::max()) {
        return std::nullopt;
    }
    return static_cast<float>(number);
}

} // namespace velorin

// Number parsing and letter case without the C locale, in which "0,5" would be a number in some
// countries.
#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The length of the exponent with digits at `from`: "E+05" is 4, "Ex" is 0.
std::size_t exponentLength(std::string_view text, std::size_t from) {
    std::size_t i = from;
    if (i >= text.size() || (lowerAscii(text[i]) != 'e' && lowerAscii(text[i]) != 'd'))
        return 0;
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    const std::size_t digits = i;
    while (i < text.size() && isDigit(text[i]))
        ++i;
    return i == digits ? 0 : i - from;
}

/// For a number outside the range of a double: true if it is too small, false if it is too large.
/// The place of its first digit plus the exponent decides: "0.001e-400" and "0.00..1" are tiny.
bool isTiny(const std::string& number) {
    const std::size_t mantissaEnd = std::min(number.find('e'), number.size());
    const std::size_t point = std::min(number.find('.'), mantissaEnd);
    const std::size_t first = number.find_first_not_of("-0.");
    auto place = static_cast<double>(point) - static_cast<double>(first);
    if (mantissaEnd < number.size()) {
        const std::string_view digits = std::string_view(number).substr(mantissaEnd + 1);
        std::int64_t exponent = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec == std::errc::result_out_of_range)
            return digits.front() == '-';
        place += static_cast<double>(exponent);
    }
    return place < 0.0;
}

/// The lower-case letter of a code point in U+0080..U+07FF: Latin-1, Latin Extended-A, Greek and
/// Cyrillic, the scripts whose cases have a fixed distance. Other letters stay.
char32_t lowerLetter(char32_t c) {
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return c + 0x20;
    const bool evenPairs = (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) ||
                           (c >= 0x14A && c <= 0x177) || (c >= 0x460 && c <= 0x481);
    if (evenPairs)
        return c | 1;
    const bool oddPairs = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (oddPairs)
        return c + (c & 1);
    if (c == 0x178)
        return 0xFF;
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2)
        return c + 0x20;
    if (c >= 0x410 && c <= 0x42F)
        return c + 0x20;
    if (c >= 0x400 && c <= 0x40F)
        return c + 0x50;
    return c;
}

} // namespace

double Val(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ')
        ++i;
    // The digits are copied, since the standard library does not know the exponent letter "D".
    std::string number;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-')
            number += '-';
        ++i;
    }
    bool point = false;
    bool digits = false;
    for (; i < text.size() && (isDigit(text[i]) || (text[i] == '.' && !point)); ++i) {
        point = point || text[i] == '.';
        digits = digits || isDigit(text[i]);
        number += text[i];
    }
    if (!digits)
        return 0.0;
    const std::size_t exponent = exponentLength(text, i);
    if (exponent > 0) {
        number += 'e';
        // Not every standard library accepts a plus sign in the exponent.
        std::string_view rest = text.substr(i + 1, exponent - 1);
        if (rest.front() == '+')
            rest.remove_prefix(1);
        number += rest;
    }
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const double magnitude = isTiny(number) ? 0.0 : std::numeric_limits<double>::infinity();
        return number.front() == '-' ? -magnitude : magnitude;
    }
    return value;
}

double roundHalfEven(double number) {
    const double down = std::floor(number);
    const double rest = number - down;
    if (rest < 0.5)
        return down;
    if (rest > 0.5)
        return down + 1.0;
    return std::fmod(down, 2.0) == 0.0 ? down : down + 1.0;
}

std::optional<std::int16_t> toInt16(double number) {
    const double whole = roundHalfEven(number);
    if (!(whole >= -32768.0 && whole <= 32767.0))
        return std::nullopt;
    return static_cast<std::int16_t>(whole);
}

std::optional<std::int16_t> readInt16(std::string_view text) {
    return toInt16(Val(text));
}

std::size_t utf8Length(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0U;
    };
    const unsigned first = byte(0);
    std::size_t length = 1;
    if (first >= 0xF0 && first <= 0xF4)
        length = 4;
    else if (first >= 0xE0)
        length = 3;
    else if (first >= 0xC2)
        length = 2;
    else if (first >= 0x80)
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
    }
    const bool isOverlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool isNoCharacter =
        (first == 0xED && byte(1) > 0x9F) || first > 0xF4 || (first == 0xF4 && byte(1) > 0x8F);
    return isOverlong || isNoCharacter ? 0 : length;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto lead = static_cast<unsigned char>(lower[i]);
        const bool twoBytes = lead >= 0xC2 && lead <= 0xDF && i + 1 < lower.size() &&
                              (static_cast<unsigned char>(lower[i + 1]) & 0xC0) == 0x80;
        if (!twoBytes) {
            lower[i] = lowerAscii(lower[i]);
            continue;
        }
        const auto trail = static_cast<unsigned char>(lower[i + 1]);
        const char32_t letter = lowerLetter(((lead & 0x1FU) << 6) | (trail & 0x3FU));
        lower[i] = static_cast<char>(0xC0 | (letter >> 6));
        lower[++i] = static_cast<char>(0x80 | (letter & 0x3F));
    }
    return lower;
}

std::string trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           lowerCase(text.substr(text.size() - ending.size())) == lowerCase(ending);
}

std::string withEnding(std::string_view name, std::string_view ending) {
    std::string whole(name);
    if (!endsWithIgnoringCase(name, ending))
        whole += ending;
    return whole;
}

} // namespace platform

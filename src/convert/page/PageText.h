// Text for a page: escaped names, bytes in base64, times, and templates.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace velorin::convert {

/// Text of an element or of a quoted attribute. Takes any bytes: what is not valid UTF-8, and
/// control characters, become U+FFFD.
[[nodiscard]] std::string escapedText(std::string_view text);

/// With padding, without line breaks. The texts of pieces may be joined if all but the last have a
/// multiple of three bytes.
[[nodiscard]] std::string base64(std::string_view bytes);

/// The part of a "data:" URL after the comma: letters, digits, ",", "-", "." and "_" as they are,
/// other bytes as "%0D".
[[nodiscard]] std::string percentEncoded(std::string_view bytes);

/// Whole seconds as "0:05", "12:05" and "1:12:05"; rounded down, 0 if negative.
[[nodiscard]] std::string clockText(double seconds);

[[nodiscard]] std::string joined(std::initializer_list<std::string_view> pieces);

struct TemplateValue {
    std::string_view name;
    std::string_view text;
};

/// The template with each "{{name}}" replaced. The texts are not searched for names. A name
/// without a value is a programmer's mistake.
[[nodiscard]] std::string filled(std::string_view text, std::span<const TemplateValue> values);

} // namespace velorin::convert

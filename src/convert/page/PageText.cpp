// Escapes and encodings of a page.
#include "convert/page/PageText.h"

#include "platform/Text.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstdio>

namespace velorin::convert {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD"; ///< U+FFFD

std::string_view entityOf(char character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return {};
    }
}

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

bool isPlainInUrl(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           std::string_view(",-._").find(c) != std::string_view::npos;
}

} // namespace

std::string escapedText(std::string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = platform::utf8Length(text, at);
        if (length == 0 || isControl(text[at])) {
            out += replacement;
            ++at;
            continue;
        }
        const std::string_view entity = entityOf(text[at]);
        out += entity.empty() ? text.substr(at, length) : entity;
        at += length;
    }
    return out;
}

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto byte = [&bytes](std::size_t i) {
        return i < bytes.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]))
                                : 0U;
    };
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::uint32_t group = byte(i) << 16U | byte(i + 1) << 8U | byte(i + 2);
        for (const unsigned shift : {18U, 12U, 6U, 0U})
            out += digits[group >> shift & 63U];
    }
    const std::size_t missing = (3 - bytes.size() % 3) % 3;
    out.replace(out.size() - missing, missing, missing, '=');
    return out;
}

std::string percentEncoded(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const char c : bytes) {
        if (isPlainInUrl(c)) {
            out += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        out += '%';
        out += digits[byte >> 4U];
        out += digits[byte & 15U];
    }
    return out;
}

std::string clockText(double seconds) {
    const auto whole = static_cast<long long>(std::max(seconds, 0.0));
    char text[40];
    if (whole >= 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                      whole % 60);
    else
        std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    return text;
}

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string out;
    for (const std::string_view piece : pieces)
        out += piece;
    return out;
}

std::string filled(std::string_view text, std::span<const TemplateValue> values) {
    std::string out;
    for (;;) {
        const std::size_t open = text.find("{{");
        out += text.substr(0, open);
        if (open == std::string_view::npos)
            return out;
        const std::size_t close = text.find("}}", open);
        assert(close != std::string_view::npos);
        const std::string_view name = text.substr(open + 2, close - open - 2);
        const auto value = std::find_if(values.begin(), values.end(),
                                        [name](const auto& known) { return known.name == name; });
        assert(value != values.end());
        if (value != values.end())
            out += value->text;
        text.remove_prefix(close + 2);
    }
}

} // namespace velorin::convert

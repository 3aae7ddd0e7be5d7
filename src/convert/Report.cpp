// The results of a batch in JSON.
#include "convert/Batch.h"

#include <cmath>
#include <cstdio>

namespace velorin::convert {

namespace {

const char* nameOf(Outcome outcome) {
    switch (outcome) {
    case Outcome::converted:
        return "converted";
    case Outcome::skipped:
        return "skipped";
    default:
        return "failed";
    }
}

// The bytes of the character that a UTF-8 text begins with; 0 if it is none.
std::size_t characterLength(const std::string& text, std::size_t at) {
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

// File names may hold any bytes; what is no UTF-8 becomes the replacement character.
std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = characterLength(text, at);
        const char character = text[at];
        if (length == 0) {
            out += "\\ufffd";
        } else if (static_cast<unsigned char>(character) < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
            out += escape;
        } else {
            if (character == '"' || character == '\\')
                out += '\\';
            out.append(text, at, length);
        }
        at += length == 0 ? 1 : length;
    }
    return out + '"';
}

std::string seconds(double number) {
    const auto thousandths = std::llround(number * 1000.0);
    char text[40];
    std::snprintf(text, sizeof text, "%lld.%03lld", thousandths / 1000, thousandths % 1000);
    return text;
}

} // namespace

std::string reportOf(const std::vector<Result>& results) {
    std::size_t counts[3] = {};
    std::string files;
    for (const Result& result : results) {
        ++counts[static_cast<std::size_t>(result.outcome)];
        files += files.empty() ? "\n" : ",\n";
        files += "    {\"source\": " + quoted(result.source);
        if (!result.target.empty())
            files += ", \"target\": " + quoted(result.target.string());
        files += ", \"outcome\": \"" + std::string(nameOf(result.outcome)) + '"';
        if (!result.reason.empty())
            files += ", \"reason\": " + quoted(result.reason);
        files += ", \"seconds\": " + seconds(result.seconds) + "}";
    }
    return "{\n  \"converted\": " + std::to_string(counts[0]) +
           ",\n  \"skipped\": " + std::to_string(counts[1]) +
           ",\n  \"failed\": " + std::to_string(counts[2]) + ",\n  \"files\": [" + files +
           "\n  ]\n}\n";
}

} // namespace velorin::convert

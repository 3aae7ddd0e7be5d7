// The results of a batch as JSON.
#include "convert/Batch.h"

#include "platform/Text.h"

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

std::string seconds(double number) {
    const auto thousandths = std::llround(number * 1000.0);
    char text[40];
    std::snprintf(text, sizeof text, "%lld.%03lld", thousandths / 1000, thousandths % 1000);
    return text;
}

} // namespace

// File names may have any bytes.
std::string jsonText(const std::string& text) {
    std::string out = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = platform::utf8Length(text, at);
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

std::string reportOf(const std::vector<ConversionResult>& results) {
    std::size_t counts[3] = {};
    std::string files;
    for (const ConversionResult& result : results) {
        ++counts[static_cast<std::size_t>(result.outcome)];
        files += files.empty() ? "\n" : ",\n";
        files += "    {\"source\": " + jsonText(result.source);
        if (!result.target.empty())
            files += ", \"target\": " + jsonText(result.target.string());
        files += ", \"outcome\": \"" + std::string(nameOf(result.outcome)) + '"';
        if (!result.reason.empty())
            files += ", \"reason\": " + jsonText(result.reason);
        files += ", \"seconds\": " + seconds(result.seconds);
        if (!result.details.empty())
            files += ", " + result.details;
        files += '}';
    }
    return "{\n  \"converted\": " + std::to_string(counts[0]) +
           ",\n  \"skipped\": " + std::to_string(counts[1]) +
           ",\n  \"failed\": " + std::to_string(counts[2]) + ",\n  \"files\": [" + files +
           "\n  ]\n}\n";
}

} // namespace velorin::convert

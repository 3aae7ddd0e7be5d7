// Formats numbers, bytes and paths for answers.
#include "Answers.h"

#include "platform/Text.h"

#include <array>
#include <cstdio>

namespace transcript {

namespace {

std::string formatted(const char* format, double value) {
    char text[48];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

/// Replaces the folder with '@'. In the rest of the path, up to a quote, a semicolon or the end,
/// '\' becomes '/'.
std::string withFolderMarked(const std::string& line, const std::string& folder,
                             bool mapSeparators) {
    std::string printed;
    const std::string lower = platform::lowerCase(line);
    const std::string lowerFolder = platform::lowerCase(folder);
    bool inPath = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (lower.compare(i, lowerFolder.size(), lowerFolder) == 0) {
            printed += '@';
            inPath = mapSeparators;
            i += lowerFolder.size() - 1;
            continue;
        }
        if (line[i] == '"' || line[i] == ';')
            inPath = false;
        printed += inPath && line[i] == '\\' ? '/' : line[i];
    }
    return printed;
}

std::string guarded(const std::string& line) {
    if (line.empty())
        return "\"\"";
    if (line.starts_with("> ") || line.starts_with("# "))
        return std::string("\\").append(line);
    return line;
}

constexpr std::array<std::uint32_t, 256> crcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1) : value >> 1;
        table[i] = value;
    }
    return table;
}();

} // namespace

Lines linesOf(const std::string& text) {
    Lines lines{""};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') {
            lines.back() += text[i];
            continue;
        }
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
        lines.emplace_back();
    }
    return lines;
}

Lines answer(float value) {
    return {formatted("%.7g", static_cast<double>(value))};
}

Lines answer(double value) {
    return {formatted("%.15g", value)};
}

std::string hexOf(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        if (!text.empty())
            text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::string crcOf(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = crcTable[(crc ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (crc >> 8);
    char text[12];
    std::snprintf(text, sizeof text, "%08X", crc ^ 0xFFFFFFFFU);
    return text;
}

std::string printedLine(const std::string& line, const std::string& folder) {
    return guarded(withFolderMarked(line, folder, true));
}

std::string printedFileLine(const std::string& line, const std::string& folder) {
    return guarded(withFolderMarked(line, folder, false));
}

} // namespace transcript

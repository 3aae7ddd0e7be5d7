// How windows show a file that was made.
#include "windows/making/MadeFile.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velorin {

namespace {

constexpr double megabyte = 1e6;
constexpr double smallestMegabytes = 0.05;

} // namespace

std::string sizeText(double bytes) {
    char text[32];
    if (bytes >= smallestMegabytes * megabyte)
        std::snprintf(text, sizeof text, "%.1f MB", bytes / megabyte);
    else
        std::snprintf(text, sizeof text, "%.0f KB", std::max(std::ceil(bytes / 1000.0), 1.0));
    return text;
}

std::string shownFolder(const std::filesystem::path& folder, const std::filesystem::path& home) {
    std::string whole = folder.string();
    const std::string begin = home.string();
    if (begin.empty() || begin == "/")
        return whole;
    if (whole == begin)
        return "~";
    if (whole.starts_with(begin + "/"))
        return whole.substr(begin.size() + 1);
    return whole;
}

} // namespace velorin

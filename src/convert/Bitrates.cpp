// A table for each version of the format; the sample rate decides which version a file has.
#include "convert/Bitrates.h"

#include <algorithm>

namespace velorin::convert {

namespace {

constexpr int usual = 192;

// The encoder raises a rate that no version knows to the next one that there is, and lowers it to
// 48,000. A version's highest rates are 12,000, 24,000 and 48,000.
constexpr int highestRateOfVersion25 = 12'000;
constexpr int highestRateOfVersion2 = 24'000;

constexpr int version25[] = {8, 16, 24, 32, 40, 48, 56, 64};
constexpr int version2[] = {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr int version1[] = {8,  16,  24,  32,  40,  48,  56,  64, 80,
                            96, 112, 128, 160, 192, 224, 256, 320};

} // namespace

std::span<const int> bitratesAt(int rateHz) {
    if (rateHz <= highestRateOfVersion25)
        return version25;
    if (rateHz <= highestRateOfVersion2)
        return version2;
    return version1;
}

int usualBitrateAt(int rateHz) {
    return std::min(usual, bitratesAt(rateHz).back());
}

std::string whyNotAt(int rateHz, int bitrate) {
    const std::span<const int> allowed = bitratesAt(rateHz);
    if (std::find(allowed.begin(), allowed.end(), bitrate) != allowed.end())
        return {};
    std::string list;
    for (const int one : allowed) {
        const char* between = one == allowed.back() ? " and " : ", ";
        list += (list.empty() ? "" : between) + std::to_string(one);
    }
    return "cannot have a bitrate of " + std::to_string(bitrate) + ": at " +
           std::to_string(rateHz) + " Hz there are " + list;
}

} // namespace velorin::convert

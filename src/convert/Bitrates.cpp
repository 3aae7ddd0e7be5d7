// One table for each version of the format. The sample rate decides the version of a file.
#include "convert/Bitrates.h"

#include <algorithm>

namespace velorin::convert {

namespace {

constexpr int usual = 192;

// The encoder raises a sample rate that no version has to the next valid one, 48,000 at most. The
// highest rates of the versions are 12,000, 24,000 and 48,000.
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

int defaultBitrateAt(int rateHz) {
    return std::min(usual, bitratesAt(rateHz).back());
}

platform::Result<void> checkBitrate(int rateHz, int bitrate) {
    const std::span<const int> allowed = bitratesAt(rateHz);
    if (std::find(allowed.begin(), allowed.end(), bitrate) != allowed.end())
        return {};
    std::string list;
    for (const int one : allowed) {
        const char* between = one == allowed.back() ? " and " : ", ";
        list += (list.empty() ? "" : between) + std::to_string(one);
    }
    return platform::Failure{"cannot have a bitrate of " + std::to_string(bitrate) + ": at " +
                             std::to_string(rateHz) + " Hz there are " + list};
}

} // namespace velorin::convert

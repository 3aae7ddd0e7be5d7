// Lengths as text.
#include "convert/SoundLength.h"

#include "convert/SoundTarget.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace velorin::convert {

namespace {

constexpr double longSeconds = 600.0; ///< 106 MB at the usual rate

double bytesOf(const SoundLength& length) {
    const double bytesPerSecond = length.bitrate > 0 ? length.bitrate * 125.0 : length.rateHz * 4.0;
    return length.seconds * bytesPerSecond;
}

// 0:05, 12:05, 1:12:05
std::string clockTime(double seconds) {
    const auto whole = static_cast<std::int64_t>(std::llround(seconds));
    const auto hours = static_cast<long long>(whole / 3600);
    const auto minutes = static_cast<int>(whole / 60 % 60);
    const auto rest = static_cast<int>(whole % 60);
    char text[40];
    if (hours > 0)
        std::snprintf(text, sizeof text, "%lld:%02d:%02d", hours, minutes, rest);
    else
        std::snprintf(text, sizeof text, "%d:%02d", minutes, rest);
    return text;
}

} // namespace

std::string lengthText(const SoundLength& length) {
    const long long megabytes = std::llround(bytesOf(length) / 1e6);
    return clockTime(length.seconds) + " of sound, " + std::to_string(megabytes) + " MB";
}

bool needsWarning(const SoundLength& length) {
    return length.seconds >= longSeconds;
}

platform::Result<void> checkPlayingTime(double seconds, int maxMinutes) {
    if (seconds > maxMinutes * 60.0)
        return platform::Failure{"is too long: it plays for " + clockTime(seconds) +
                                 "; --most-minutes allows " + std::to_string(maxMinutes)};
    return {};
}

platform::Result<void> checkLength(const SoundLength& length, int maxMinutes) {
    if (length.seconds > maxMinutes * 60.0)
        return platform::Failure{"is too long: " + lengthText(length) + "; --most-minutes allows " +
                                 std::to_string(maxMinutes)};
    const double frames = length.seconds * length.rateHz;
    if (length.bitrate == 0 && frames > static_cast<double>(maxWavFrames))
        return platform::Failure{"is too long for a WAV file: " + lengthText(length) +
                                 "; make an MP3 file, or use a lower --rate"};
    return {};
}

} // namespace velorin::convert

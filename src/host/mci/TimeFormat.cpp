// Converts between milliseconds and units of a device.
#include "host/mci/TimeFormat.h"

#include <cmath>

namespace velorin::host {

std::optional<TimeFormat> timeFormatOf(const std::string& word) {
    if (word == "ms" || word == "milliseconds")
        return TimeFormat::milliseconds;
    if (word == "frames")
        return TimeFormat::frames;
    if (word == "samples")
        return TimeFormat::samples;
    return std::nullopt;
}

std::string nameOf(TimeFormat format) {
    if (format == TimeFormat::milliseconds)
        return "milliseconds";
    return format == TimeFormat::frames ? "frames" : "samples";
}

std::int64_t toFormat(std::int64_t units, TimeFormat format, std::int64_t unitsPerSecond) {
    if (format != TimeFormat::milliseconds)
        return units;
    return std::llround(static_cast<double>(units) * 1000.0 / static_cast<double>(unitsPerSecond));
}

std::int64_t fromFormat(std::int64_t count, TimeFormat format, std::int64_t unitsPerSecond) {
    if (format != TimeFormat::milliseconds)
        return count;
    return std::llround(static_cast<double>(count) * static_cast<double>(unitsPerSecond) / 1000.0);
}

} // namespace velorin::host

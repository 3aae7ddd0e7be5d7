// How long a conversion will still take.
#include "windows/making/TimeLeft.h"

#include "platform/CountedText.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr double firstSecond = 1.0;
constexpr int minutesFrom = 120; ///< seconds
constexpr double longest = 86400.0;

} // namespace

std::optional<int> TimeLeft::seconds(double share, std::int64_t nowNs) const {
    const double elapsed = static_cast<double>(nowNs - startNs_) / 1e9;
    if (elapsed < firstSecond || !(share > 0.0))
        return std::nullopt;
    const double left = elapsed * (1.0 - std::min(share, 1.0)) / share;
    return static_cast<int>(std::ceil(std::min(left, longest)));
}

std::string timeLeftText(int seconds) {
    const bool isLong = seconds >= minutesFrom;
    const int count = isLong ? (seconds + 30) / 60 : seconds;
    return "about " + platform::counted(count, isLong ? "minute" : "second") + " left";
}

} // namespace velorin

// Captions of the progress display, without regard to any locale.
#include "playback/Progress.h"

#include "platform/Text.h"

#include <array>
#include <charconv>

namespace velorin {

namespace {

std::string fixed(double number, int places) {
    std::array<char, 64> digits{}; // a share in single precision has at most 39 before the point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, places);
    return {digits.data(), end.ptr};
}

} // namespace

std::string percentCaption(double share) {
    const double percent = platform::roundHalfEven(share * 100.0);
    std::string caption;
    if (percent != 0.0)
        caption = fixed(percent, 0);
    return caption.append(" %");
}

std::string twoDigits(std::int64_t number) {
    std::string digits = std::to_string(number < 0 ? -number : number);
    if (digits.size() < 2)
        digits.insert(0, 1, '0');
    if (number < 0)
        digits.insert(0, 1, '-');
    return digits;
}

std::string exactPercent(std::int64_t done, std::int64_t total) {
    std::string digits = fixed(static_cast<double>(done) / static_cast<double>(total) * 100.0, 2);
    if (digits.size() < 5)
        digits.insert(0, 1, '0');
    return digits.append("%");
}

} // namespace velorin

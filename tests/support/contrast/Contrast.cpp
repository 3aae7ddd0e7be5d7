// The contrast of two colours.
#include "support/contrast/Contrast.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

double linear(double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

} // namespace

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrastOf(double first, double second) {
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

double contrast(const QColor& first, const QColor& second) {
    return contrastOf(luminance(first), luminance(second));
}

QColor blended(const QColor& above, const QColor& ground) {
    const auto mix = [share = above.alphaF()](double upper, double lower) {
        return static_cast<float>(share * upper + (1 - share) * lower);
    };
    return QColor::fromRgbF(mix(above.redF(), ground.redF()), mix(above.greenF(), ground.greenF()),
                            mix(above.blueF(), ground.blueF()));
}

} // namespace velorin

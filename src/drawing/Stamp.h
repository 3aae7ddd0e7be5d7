// Cached circles: each kind is drawn once with antialiasing, and its pixels are then copied.
#pragma once

#include "model/RowColors.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class QColor;

namespace velorin {

/// How closed shapes are filled. The numbers are fixed.
enum class FillStyle { solid = 0, transparent = 1, horizontalLines = 2, diagonalCross = 7 };

/// Whether a fill style's pattern covers the logical pixel (x, y). Patterns are 8 by 8 and count
/// from the corner of the surface, so that neighbouring shapes join.
[[nodiscard]] bool patternCovers(FillStyle style, long long x, long long y);

/// A colour as the surfaces hold it: 0xffRRGGBB.
[[nodiscard]] constexpr std::uint32_t toPixel(Colour colour) {
    return 0xff000000U | (colour & 0xffU) << 16 | (colour & 0xff00U) | (colour >> 16 & 0xffU);
}

[[nodiscard]] constexpr Colour toColour(std::uint32_t pixel) {
    return (pixel & 0xffU) << 16 | (pixel & 0xff00U) | (pixel >> 16 & 0xffU);
}

[[nodiscard]] QColor toQColor(Colour colour);

struct StampKey {
    int radius;
    Colour outline;
    FillStyle style;
    Colour fill;
    int phaseX; ///< [0, 3], quarters of a device pixel from a whole one to the corner
    int phaseY;
    friend bool operator==(const StampKey&, const StampKey&) = default;
};

/// Premultiplied device pixels of a circle. The corner of the square around the circle is in the
/// device pixel (1, 1).
struct Stamp {
    StampKey key{};
    int size = 0;
    std::vector<std::uint32_t> pixels;
    std::vector<std::pair<int, int>>
        spans; ///< of each line: the first covered pixel, and one past the last
};

/// Draws a stamp. `mask` says for a device pixel of the stamp whether the pattern of its fill
/// covers it; null covers everything.
using StampMask = std::function<bool(int deviceX, int deviceY)>;
[[nodiscard]] Stamp makeStamp(const StampKey& key, double ratio, const StampMask& mask = nullptr);

/// The cached stamps of one surface. There are few kinds: thirteen colours, two radii.
class StampCase {
public:
    [[nodiscard]] const Stamp& get(const StampKey& key, double ratio);

private:
    double ratio_ = 0.0;
    std::vector<Stamp> stamps_;
};

} // namespace velorin

// Circles ready for copying: each kind is drawn once with antialiasing and then laid onto a surface
// as memory.
#pragma once

#include "score/RowColors.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class QColor;

namespace velorin {

/// How closed shapes are filled; the numbers are the program's own.
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
    int phaseX; ///< [0, 3], quarters of a device pixel by which the corner lies right of a whole
                ///< one
    int phaseY;
    friend bool operator==(const StampKey&, const StampKey&) = default;
};

/// Premultiplied device pixels of a circle. Its corner, where the square around it begins, lies in
/// the device pixel (1, 1).
struct Stamp {
    StampKey key{};
    int size = 0;
    std::vector<std::uint32_t> pixels;
    std::vector<std::pair<int, int>>
        spans; ///< of each line: from the first covered pixel, to the end
};

/// Draws one. A fill with a pattern shows where `mask` holds, of the stamp's own device pixels.
using StampMask = std::function<bool(int deviceX, int deviceY)>;
[[nodiscard]] Stamp makeStamp(const StampKey& key, double ratio, const StampMask& mask = nullptr);

/// Keeps the stamps of one surface. Few kinds occur: thirteen colours, two radii.
class StampCase {
public:
    [[nodiscard]] const Stamp& get(const StampKey& key, double ratio);

private:
    double ratio_ = 0.0;
    std::vector<Stamp> stamps_;
};

} // namespace velorin

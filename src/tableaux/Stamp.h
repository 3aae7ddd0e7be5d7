// Circles ready for copying: each kind is drawn once with antialiasing and then laid onto a surface
// as memory.
#pragma once

#include "score/RowColors.h"

#include <cstdint>
#include <utility>
#include <vector>

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

struct StampKey {
    int radius;
    Colour outline;
    FillStyle style;
    Colour fill;
    friend bool operator==(const StampKey&, const StampKey&) = default;
};

/// Premultiplied device pixels around a centre pixel.
//
//      <- offset ->
//      . . . o o o . . .      the logical pixel of the centre begins `offset` device pixels right
//      of . o o + + + o o .      and below the stamp's corner o + + + C + + + o
struct Stamp {
    StampKey key{};
    int size = 0;
    int offset = 0;
    std::vector<std::uint32_t> pixels;
    std::vector<std::pair<int, int>>
        spans; ///< of each line: from the first covered pixel, to the end
};

/// Draws one. Solid and transparent fills only; a pattern needs its place, and is masked by the
/// caller.
[[nodiscard]] Stamp makeStamp(const StampKey& key, double ratio);

/// As `makeStamp`, the fill masked by the pattern at the centre (x, y).
[[nodiscard]] Stamp makePatternStamp(const StampKey& key, double ratio, long long x, long long y);

/// Keeps the stamps of one surface. Few kinds occur: thirteen colours, two radii.
class StampCase {
public:
    [[nodiscard]] const Stamp& get(const StampKey& key, double ratio);

private:
    double ratio_ = 0.0;
    std::vector<Stamp> stamps_;
};

} // namespace velorin

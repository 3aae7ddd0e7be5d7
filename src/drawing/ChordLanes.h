// The eight lanes of chord marks: their places and colours.
#pragma once

#include "model/Cell.h"
#include "model/RowColors.h"

#include <array>
#include <cstddef>

namespace velorin {

/// A lane and its block, in pixels of `Pic1`.
///
/// Rule: the bands that take a click are not all 7 pixels high: lane 3 has y 14 to 21. Held by
/// tableaux/polyphonics.
struct Lane {
    int top;
    int bottom;
    int bandEnd; ///< the first y after the band
    Colour colour;
};

constexpr std::array<Lane, musicRows> lanes{{
    {1, 6, 7, rgb(255, 0, 0)},
    {8, 13, 14, rgb(0, 0, 255)},
    {15, 20, 22, rgb(0, 255, 0)},
    {22, 27, 29, rgb(255, 0, 255)},
    {29, 34, 36, rgb(0, 255, 255)},
    {36, 41, 43, rgb(255, 128, 0)},
    {43, 48, 50, rgb(255, 255, 0)},
    {50, 55, 57, rgb(192, 192, 255)},
}};

/// `number` [1, 8].
constexpr const Lane& laneOf(int number) {
    return lanes[static_cast<std::size_t>(number - 1)];
}

/// The lane [1, 8] that a y hits; 0 for none.
constexpr int laneAt(double y) {
    for (int number = 1; number <= musicRows; ++number) {
        if (y < laneOf(number).bandEnd)
            return number;
    }
    return 0;
}

} // namespace velorin

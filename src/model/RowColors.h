// The colours of the thirteen rows, as the tableaux and the row buttons show them.
#pragma once

#include "model/RowArray.h"

#include <cstdint>

namespace velorin {

/// A colour as 0xBBGGRR, red in the low byte.
using Colour = std::uint32_t;

constexpr Colour rgb(unsigned red, unsigned green, unsigned blue) {
    return red | (green << 8) | (blue << 16);
}

constexpr Colour white = rgb(255, 255, 255);

/// The bright colour of each row: its button, and its notes while it is the active row.
constexpr RowArray<Colour> channelColors{
    rgb(255, 0, 0),   rgb(0, 0, 255),   rgb(0, 255, 0),     rgb(255, 0, 255), rgb(0, 255, 255),
    rgb(255, 128, 0), rgb(255, 255, 0), rgb(192, 192, 255), rgb(192, 0, 192), rgb(255, 128, 255),
    rgb(192, 0, 0),   rgb(0, 0, 192),   rgb(192, 192, 0),
};

/// The pale colour of each row's notes while another row is active.
constexpr RowArray<Colour> paleColors{
    rgb(192, 192, 255), rgb(255, 192, 255), rgb(255, 192, 192), rgb(192, 255, 192),
    rgb(192, 255, 255), rgb(192, 192, 255), rgb(255, 192, 255), rgb(238, 204, 170),
    rgb(255, 192, 192), rgb(255, 255, 192), rgb(184, 250, 210), rgb(192, 255, 255),
    rgb(192, 255, 255),
};

} // namespace velorin

// Colours that the tests of the tableaux look for.
#pragma once

#include "model/RowColors.h"

namespace velorin {

inline constexpr Colour red = rgb(255, 0, 0);
inline constexpr Colour blue = rgb(0, 0, 255);
inline constexpr Colour green = rgb(0, 128, 0);
inline constexpr Colour ground = rgb(192, 255, 192);   // of the percussion strip
inline constexpr Colour barColour = rgb(68, 204, 255); // the lines between bars
inline constexpr Colour row8 = rgb(192, 0, 192);       // beats of percussion channel 1

} // namespace velorin

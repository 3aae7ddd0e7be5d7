// Draws the sheet of a page as SVG: sharp at every size, and far smaller than pixels.
#pragma once

#include "convert/page/SheetLayout.h"

#include <string>

namespace velorin::convert {

/// The drawing with the pitch names beside the sheet. It also has what all tiles share, so it has
/// to be in the page before them.
[[nodiscard]] std::string namesDrawing(const SheetLayout& layout);

/// The sheet in tiles of twelve bars, which printing puts below one another. Each has its names
/// for printing, the numbers of its bars, and its notes. All rows are in their bright colour, row 0
/// on top, since no row is active. Row colours are the classes c0 to c12 of the style sheet.
[[nodiscard]] std::string tilesDrawing(const SheetLayout& layout, const Score& score);

} // namespace velorin::convert

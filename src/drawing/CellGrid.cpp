// Draws the bar lines.
#include "drawing/CellGrid.h"

#include "drawing/Picture.h"

namespace velorin {

namespace {

constexpr Colour barColour = rgb(68, 204, 255);

} // namespace

void drawBarLines(Picture& picture, int firstColumn) {
    for (int x = 0; x < picture.ScaleWidth(); x += cellPx) {
        if ((x / cellPx + firstColumn) % columnsOfBar == 0)
            picture.verticalLine(x, 0, picture.ScaleHeight(), barColour);
    }
}

} // namespace velorin

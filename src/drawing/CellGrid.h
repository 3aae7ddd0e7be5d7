// The cell size of the tableaux, and the lines at the beginning of every bar.
#pragma once

namespace velorin {

class Picture;

constexpr int cellPx = 12; ///< a column is as wide as a line is high
constexpr int columnsOfBar = 4;

/// Draws the bar lines over the whole height. `firstColumn` is the score column at the left edge of
/// the picture.
void drawBarLines(Picture& picture, int firstColumn);

} // namespace velorin

// The measure of the tableaux: cells of twelve pixels, and a line at the beginning of every bar.
#pragma once

namespace velorin {

class Picture;

constexpr int cellPx = 12; ///< a column is as wide as a line is high
constexpr int columnsOfBar = 4;

/// The lines of the bars, as high as the picture; `firstColumn` is the score column at its left
/// edge.
void drawBarLines(Picture& picture, int firstColumn);

} // namespace velorin

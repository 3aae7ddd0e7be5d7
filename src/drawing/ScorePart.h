// Draws a part of a score for a picture: without a window, with all rows.
#pragma once

#include <QImage>

namespace velorin {

struct Studio;

struct ScorePart {
    int firstColumn = 0;
    int columns = 1;  ///< above 0
    int topPitch = 0; ///< the pitch index of the first line
    int lines = 1;    ///< above 0
};

/// Draws the part as the music tableau shows it, `cellPx` for each column and line. In a window a
/// row shows once the user has selected it; here all rows show. Changes the view of the studio.
/// `ratio` is device pixels per pixel, above 0. Needs no application object.
[[nodiscard]] QImage drawPart(Studio& studio, const ScorePart& part, double ratio = 1.0);

} // namespace velorin

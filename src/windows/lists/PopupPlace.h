// Where an open list goes on the screen, and how many rows it shows.
#pragma once

#include <QRect>

namespace velorin {

struct PopupPlace {
    QRect rect;
    int rows = 0;
};

/// The list of a field, both in pixels of the screen: `width` wide, with `edges` pixels of height
/// besides its rows of `rowHeight`.
///
/// It shows 18 rows, 16 on a low screen and 20 on a high one. It begins 1 pixel below the field at
/// the field's left edge. If the screen ends there, it is above the field, or further left. It
/// never covers the field: if neither side has room for that many rows, the larger side gets what
/// fits, at least one row.
[[nodiscard]] PopupPlace placeOfPopup(QRect field, QRect screen, int width, int edges,
                                      int rowHeight);

} // namespace velorin

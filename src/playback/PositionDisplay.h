// The playing marker: saves a strip of the tableau, paints over it, and restores it a column later.
#pragma once

#include <cstdint>

namespace velorin {

struct Studio;
struct View;

/// Moves the view so that `column` is at its left edge, or to the last page if less than a page
/// follows. Draws nothing.
void showFromColumn(View& view, std::int16_t column);

class PositionDisplay {
public:
    PositionDisplay(Studio& studio) : studio_(studio) {}

    /// Removes the marker and draws it at the play column. Turns the page if that column is past
    /// the right edge. With the display off it only removes the marker.
    void moveMarker();

private:
    void turnPage();
    [[nodiscard]] bool isStripGood() const;

    Studio& studio_;
    unsigned drawsAtSave_ = 0; ///< of the tableau, when the strip was saved
};

} // namespace velorin

// The moving marker: one strip of the tableau is saved, painted over, and put back a column later.
#pragma once

#include <cstdint>

namespace velorin {

class PlaybackDesk;
struct Studio;
struct View;

/// Brings `column` to the left edge of the view, or the view to the end of the grid if the column
/// stands nearer to it than a page. Draws nothing.
void showFromColumn(View& view, std::int16_t column);

class PositionDisplay {
public:
    PositionDisplay(Studio& studio, PlaybackDesk& desk) : studio_(studio), desk_(desk) {}

    /// Takes the marker away from where it stands and draws it at the play column, turning the page
    /// if that lies behind the right edge. With the display off it only takes away.
    void moveMarker();

private:
    void turnPage();
    [[nodiscard]] bool isStripGood() const;

    Studio& studio_;
    PlaybackDesk& desk_;
    unsigned drawsAtSave_ = 0; ///< of the tableau, when the strip was saved
};

} // namespace velorin

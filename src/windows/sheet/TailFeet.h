// The feet of the tails: a dark line below each tail whose colour is hard to see on white.
#pragma once

#include "model/RowColors.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velorin {

struct Studio;

/// A line one pixel high, in pixels of the music tableau. It is below the tail, so it covers
/// nothing that belongs to a note:
///
///     y + 4   ( head )==================
///     y + 7   (      )==================
///     y + 8            -----------------   the foot, from the second column on
struct TailFoot {
    int x = 0;
    int y = 0;
    int widthPx = 0;
    Colour colour = 0;
    bool operator==(const TailFoot&) const = default;
};

/// The contrast of two colours after WCAG 2, [1, 21].
[[nodiscard]] double contrast(Colour one, Colour other);

/// The colour of the foot: a dark tone of the row's colour. None for a colour that has a contrast
/// of 3 on white and on the grey bands.
[[nodiscard]] std::optional<Colour> footColour(Colour tail, bool isActive);

/// Finds the feet for the tableau as it was drawn last. User-interface thread only.
class TailFeet {
public:
    /// `lines` is the number of lines in view, above 0. Reads the setup, as a draw does.
    void update(Studio& studio, int lines);
    [[nodiscard]] const std::vector<TailFoot>& all() const { return feet_; }

private:
    /// What lies below a cell: 0 nothing, 1 a head, else the number of a foot's colour plus 2.
    std::vector<std::uint8_t> cells_;
    std::vector<TailFoot> feet_;
};

} // namespace velorin

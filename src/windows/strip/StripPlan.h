// What the free part of the strip shows in a window of a given width.
#pragma once

namespace velorin {

/// Undo, Redo, History, Export.
constexpr int stripButtons = 4;

/// Widths and places in logical pixels; `left` values are in the strip.
struct StripPlan {
    enum class Arrow { none, inStrip, inTitle };

    int buttons = stripButtons; ///< how many are in the strip, from the left; [0, 4]
    bool hasSeparator = true;   ///< the line before them
    bool hasLine = true;        ///< the line of state, with its separator
    bool hasWordMark = true;
    Arrow arrow = Arrow::none; ///< opens a menu of the buttons that are not shown
    int arrowLeft = 0;         ///< of an arrow in the strip
    bool operator==(const StripPlan&) const = default;
};

/// Any width, also 0. A narrower window never shows more.
///
/// Rule: the fourteen described buttons keep their places at any width, so the arrow never covers
/// one of them. Held by the unit test StripPlan.ArrowNeverCoversADescribedButton.
[[nodiscard]] StripPlan stripPlan(int windowWidth);

/// The left edge of new button `index` [0, 4).
[[nodiscard]] int stripButtonLeft(int index);

constexpr int stripSeparatorLeft = 593;
constexpr int lineSeparatorLeft = 757;

} // namespace velorin

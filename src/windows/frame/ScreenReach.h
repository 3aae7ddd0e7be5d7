// Tests whether the user can reach a part of a window on some screen, and finds a better place if
// not.
#pragma once

#include "platform/Desktop.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace velorin {

using Screens = std::vector<platform::Screen>;

/// The width of a title that must be on a screen so that the user can drag it, in pixels.
constexpr int gripWidthPx = 48;

/// True if one screen shows at least the width and the height `least` of `part`, which is in
/// desktop coordinates.
[[nodiscard]] bool isInReach(const QRect& part, QSize least, const Screens& screens);

/// The same for a window's title: `gripWidthPx` of its width and half of its height.
[[nodiscard]] bool isTitleInReach(const QRect& title, const Screens& screens);

/// The place at which the whole window is on the screen nearest to it, moved as little as possible.
/// A window larger than the screen begins where the screen begins.
[[nodiscard]] QPoint placeInNearest(const QRect& window, const Screens& screens);

/// The nearest place at which the window overlaps none of `taken`, is wholly on one screen, and has
/// a small gap to its neighbours. Its own place if it overlaps none, or if there is no room.
[[nodiscard]] QPoint placeBeside(const QRect& window, const std::vector<QRect>& taken,
                                 const Screens& screens);

} // namespace velorin

// Whether the user can reach a piece of a window on some screen, and where the window comes to
// stand if not.
#pragma once

#include "platform/Desktop.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace velorin {

using Screens = std::vector<platform::Screen>;

/// So much of a title has to be on a screen for the user to take hold of it, in pixels.
constexpr int gripWidthPx = 48;

/// Whether one screen shows at least `least` of `part`, both sides being needed at once. `part` is
/// in the desktop's coordinates.
[[nodiscard]] bool isInReach(const QRect& part, QSize least, const Screens& screens);

/// The same of a window's title: enough to take hold of, and half of its height.
[[nodiscard]] bool isTitleInReach(const QRect& title, const Screens& screens);

/// Where a window comes to stand that is to lie whole in the screen nearest to it: moved as little
/// as that takes. A window larger than the screen begins where the screen begins.
[[nodiscard]] QPoint placeInNearest(const QRect& window, const Screens& screens);

/// Where a window comes to stand that is to lie over none of `taken`: the nearest place that some
/// screen has whole, a little away from its neighbours; its own place if it lies over none, or if
/// there is no room.
[[nodiscard]] QPoint placeBeside(const QRect& window, const std::vector<QRect>& taken,
                                 const Screens& screens);

} // namespace velorin

// Paints hints and message boxes: paper, with an outline and a title band.
#pragma once

#include <QPainterPath>
#include <QSize>

class QPainter;

namespace velorin {

/// The outline of a window of `size` pixels.
[[nodiscard]] QPainterPath framePath(QSize size, double radius);

/// Paints the ground and the outline of a window of `size` pixels. The band at the top is `bandPx`
/// high, and 0 for none. The painter's origin is the window's corner.
void paintPaper(QPainter& painter, QSize size, double radius, int bandPx);

} // namespace velorin

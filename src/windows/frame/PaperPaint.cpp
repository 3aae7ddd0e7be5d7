// Paints hints and message boxes.
#include "windows/frame/PaperPaint.h"

#include "windows/frame/LookColors.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>

namespace velorin {

QPainterPath framePath(QSize size, double radius) {
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(0, 0), QSizeF(size)), radius, radius);
    return path;
}

void paintPaper(QPainter& painter, QSize size, double radius, int bandPx) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = framePath(size, radius);
    painter.fillPath(outline, look::hint);
    if (bandPx > 0) {
        QLinearGradient ground(0, 0, 0, bandPx);
        ground.setColorAt(0, look::titleTop);
        ground.setColorAt(1, look::titleFoot);
        QPainterPath band;
        band.addRect(QRectF(0, 0, size.width(), bandPx));
        painter.fillPath(outline.intersected(band), ground);
    }
    painter.setPen(QPen(look::edge, 1.0));
    painter.drawRoundedRect(QRectF(QPointF(0, 0), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5),
                            radius - 0.5, radius - 0.5);
}

} // namespace velorin

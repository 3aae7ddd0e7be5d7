// Paints the window frames.
#include "windows/frame/FramePaint.h"

#include "windows/frame/LookColors.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

/// The straight side begins at a multiple of this after the corner. That is the edge of a pixel at
/// every scale that is a multiple of a quarter, so side and corner meet without a seam.
constexpr double sideStep = 4.0;
double sideAfter(double corner) {
    return std::ceil(corner / sideStep) * sideStep;
}
double sideBefore(double corner) {
    return std::floor(corner / sideStep) * sideStep;
}

/// Draws a line around a box, one pixel wide. The box runs through the middle of pixels:
///
///       .-- ------ --.     Corners are short paths, sides plain rectangles. The whole outline of
///      |              |    a window as one smooth path takes more than a millisecond, and each
///                          piece of the frame paints it again.
///      |              |
///       `-- ------ --'
void strokeRounded(QPainter& painter, const QColor& colour, const QRectF& box, double radius) {
    const double r = std::max(radius, 0.0);
    const double left = sideAfter(box.left() + r);
    const double right = sideBefore(box.right() - r);
    const double top = sideAfter(box.top() + r);
    const double foot = sideBefore(box.bottom() - r);
    painter.fillRect(QRectF(left, box.top() - 0.5, right - left, 1), colour);
    painter.fillRect(QRectF(left, box.bottom() - 0.5, right - left, 1), colour);
    painter.fillRect(QRectF(box.left() - 0.5, top, 1, foot - top), colour);
    painter.fillRect(QRectF(box.right() - 0.5, top, 1, foot - top), colour);
    painter.setPen(QPen(colour, 1.0, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    constexpr double roundness = 0.5522847498; // of a quarter circle as a cubic curve
    for (const double across : {-1.0, 1.0}) {
        for (const double down : {-1.0, 1.0}) {
            const double x = across < 0 ? box.left() : box.right();
            const double y = down < 0 ? box.top() : box.bottom();
            const QPointF inX(-across * r, 0);
            const QPointF inY(0, -down * r);
            const QPointF corner(x, y);
            QPainterPath path(QPointF(x, down < 0 ? top : foot));
            path.lineTo(corner + inY);
            path.cubicTo(corner + inY * (1 - roundness), corner + inX * (1 - roundness),
                         corner + inX);
            path.lineTo(across < 0 ? left : right, y);
            painter.drawPath(path);
        }
    }
}

QLinearGradient downwards(double top, double foot, const QColor& first, const QColor& last) {
    QLinearGradient gradient(0, top, 0, foot);
    gradient.setColorAt(0, first);
    gradient.setColorAt(1, last);
    return gradient;
}

} // namespace

void paintFrameLines(QPainter& painter, QSize size, double radius) {
    const double w = size.width();
    const double h = size.height();
    strokeRounded(painter, look::innerLight, QRectF(1.5, 1.5, w - 3, h - 3), radius - 1.5);
    strokeRounded(painter, look::ink950, QRectF(0.5, 0.5, w - 1, h - 1), radius - 0.5);
}

void paintMainFrame(QPainter& painter, QSize size, double radius) {
    const double w = size.width();
    const double h = size.height();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(0, 0, 0, h);
    ground.setColorAt(0, QColor(70, 76, 138));
    // In a very low window this stop would come after the next one.
    ground.setColorAt(qMin(25.0 / h, 0.12), QColor(54, 59, 112));
    ground.setColorAt(0.12, QColor(44, 48, 96));
    ground.setColorAt(1, QColor(32, 35, 74));
    painter.fillPath(framePath(size, radius), ground);
    paintFrameLines(painter, size, radius);
    strokeRounded(painter, look::areaLight, QRectF(24.5, 24.5, w - 48, h - 48), 5);
    strokeRounded(painter, look::ink950, QRectF(25.5, 24.5, w - 50, h - 49), 4);
    painter.restore();
}

void paintToolFrame(QPainter& painter, QSize size, double radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = framePath(size, radius);
    painter.fillPath(outline, look::ink700);
    QPainterPath band;
    band.addRect(QRectF(0, 0, size.width(), toolTitleHeight));
    painter.fillPath(outline.intersected(band),
                     downwards(0, toolTitleHeight, look::titleTop, look::titleFoot));
    painter.fillRect(QRectF(0, toolTitleHeight - 1, size.width(), 1), look::ink900);
    paintFrameLines(painter, size, radius);
    painter.restore();
}

void paintStrip(QPainter& painter, QRect strip) {
    painter.fillRect(strip,
                     downwards(strip.top(), strip.bottom() + 1, look::face, look::stripFoot));
    painter.fillRect(QRect(strip.left(), strip.top(), strip.width(), 1), QColor(255, 255, 255, 26));
    painter.fillRect(QRect(strip.left(), strip.bottom(), strip.width(), 1), look::ink950);
}

void paintRoundStrip(QPainter& painter, QRect strip) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::line, 1.0));
    painter.setBrush(downwards(strip.top(), strip.bottom() + 1, look::face, look::stripFoot));
    painter.drawRoundedRect(QRectF(strip).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    painter.restore();
}

void paintSeparator(QPainter& painter, int x, int y, int height) {
    painter.fillRect(QRect(x, y, 1, height), look::ink900);
    painter.fillRect(QRect(x + 1, y, 1, height), QColor(255, 255, 255, 28));
}

FramePiece::FramePiece(QWidget* window, const QString& name, Recipe recipe)
    : QWidget(window), recipe_(std::move(recipe)) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    lower();
}

void FramePiece::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.translate(-pos());
    recipe_(painter, parentWidget()->size());
}

} // namespace velorin

// Painting of the progress bar, and what screen readers hear of it.
#include "windows/frame/ProgressBar.h"

#include "windows/frame/LookColors.h"
#include "windows/texts/ScreenReader.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr double trackRadius = 6.0;

void paintTrack(QPainter& painter, const QRect& track, const QBrush& fill) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::line, 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(track).adjusted(0.5, 0.5, -0.5, -0.5), trackRadius, trackRadius);
}

} // namespace

ProgressTrack::ProgressTrack(QWidget* parent) : QWidget(parent) {}

void ProgressTrack::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintTrack(painter, rect(), look::ink900);
}

ProgressBar::ProgressBar(ProgressTrack* track, int stepPercent)
    : QLabel(track), stepPercent_(stepPercent) {
    setGeometry(0, 0, 1, track->height());
}

void ProgressBar::setBarWidth(int widthPx) {
    resize(widthPx, height());
    const int whole = parentWidget()->width();
    if (whole <= 0)
        return;
    const int percent = std::clamp(100 * widthPx / whole, 0, 100);
    announceProgress(*parentWidget(), percent - percent % stepPercent_);
}

void ProgressBar::setShare(double share) {
    const double width = std::clamp(share, 0.0, 1.0) * parentWidget()->width();
    setBarWidth(std::max(static_cast<int>(std::lround(width)), 1));
}

void ProgressBar::paintEvent(QPaintEvent*) {
    if (width() <= 1)
        return;
    QPainter painter(this);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, QColor(110, 220, 255));
    fill.setColorAt(1, QColor(40, 160, 214));
    // Paints the whole track, of which the bar shows its part, so their round ends match.
    paintTrack(painter, parentWidget()->rect(), fill);
}

} // namespace velorin

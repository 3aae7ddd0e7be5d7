// The ring of the pen round a cell.
#include "windows/pen/PenRing.h"

#include "windows/frame/LookColors.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace velorin {

namespace {

constexpr int ringMarginPx = 8; ///< the lines, rounded up at any scale
constexpr double haloRadius = 4.0;
constexpr double ringRadius = 3.5;
constexpr double lightRadius = 1.5;

int rounded(double device) {
    return static_cast<int>(std::floor(device + 0.5));
}

} // namespace

PenRing::PenRing(QWidget* area) : QWidget(area) {
    setObjectName("PenRing");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void PenRing::showRound(const QWidget& box, const QRect& cells, bool isHeld) {
    const QRect place = cells.translated(box.pos()).adjusted(-ringMarginPx, -ringMarginPx,
                                                             ringMarginPx, ringMarginPx);
    box_ = box.pos() - place.topLeft();
    cells_ = cells;
    isHeld_ = isHeld;
    setGeometry(place);
    raise();
    show();
    update();
}

PenRing::Lines PenRing::linesAt(double ratio) {
    const auto wide = [ratio](double logical) {
        return static_cast<int>(std::ceil(logical * ratio));
    };
    return {wide(1), wide(2), wide(1)};
}

// In device pixels, with the cell's edges rounded like those of the picture below. So every line is
// sharp at every scale, and the cell stays free.
void PenRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QTransform toDevice = painter.deviceTransform();
    const double ratio = devicePixelRatioF();
    const QPointF corner = toDevice.map(QPointF(box_));
    const auto edge = [ratio](double from, int logical) {
        return rounded(from) + rounded(logical * ratio);
    };
    const QRect cells(QPoint(edge(corner.x(), cells_.x()), edge(corner.y(), cells_.y())),
                      QPoint(edge(corner.x(), cells_.x() + cells_.width()) - 1,
                             edge(corner.y(), cells_.y() + cells_.height()) - 1));
    painter.setWorldTransform(toDevice.inverted());
    painter.setRenderHint(QPainter::Antialiasing);
    const auto draw = [&](int around, double radius, const QColor& colour) {
        QPainterPath line;
        line.addRoundedRect(cells.adjusted(-around, -around, around, around), radius * ratio,
                            radius * ratio);
        line.addRect(cells);
        painter.fillPath(line, colour);
    };
    const Lines lines = linesAt(ratio);
    draw(lines.light + lines.ring + lines.halo, haloRadius, Qt::white);
    draw(lines.light + lines.ring, ringRadius, look::ink950);
    draw(lines.light, lightRadius, isHeld_ ? look::cream : look::sky);
}

} // namespace velorin

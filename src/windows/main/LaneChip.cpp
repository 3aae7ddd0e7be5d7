// A chip of the legend beside the chord lanes.
#include "windows/main/LaneChip.h"

#include "drawing/Stamp.h"

#include <QPainter>

namespace velorin {

LaneChip::LaneChip(QWidget* parent, Colour colour) : QWidget(parent), colour_(toQColor(colour)) {
    setProperty("backColor", colour_);
}

void LaneChip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour_);
    painter.drawRoundedRect(QRectF(rect()), 2, 2);
}

} // namespace velorin

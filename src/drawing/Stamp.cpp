// Draws and caches circles.
#include "drawing/Stamp.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace velorin {

namespace {

/// More kinds than any score needs. A larger cache is cleared, so that it cannot grow without end.
constexpr std::size_t stampLimit = 64;

} // namespace

QColor toQColor(Colour colour) {
    return QColor::fromRgb(toPixel(colour));
}

bool patternCovers(FillStyle style, long long x, long long y) {
    switch (style) {
    case FillStyle::solid:
        return true;
    case FillStyle::horizontalLines:
        return (y & 7) == 4;
    case FillStyle::diagonalCross:
        return ((x + y) & 7) == 0 || ((x - y) & 7) == 0;
    case FillStyle::transparent:
        break;
    }
    return false;
}

Stamp makeStamp(const StampKey& key, double ratio, const StampMask& mask) {
    Stamp stamp;
    stamp.key = key;
    stamp.size = static_cast<int>(std::ceil((2 * key.radius + 1) * ratio)) + 3;
    QImage image(stamp.size, stamp.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    const double reach = 1 + (key.radius + 0.5) * ratio;
    const QPointF centre(reach + key.phaseX / 4.0, reach + key.phaseY / 4.0);
    const double radius = key.radius * ratio;
    if (key.style != FillStyle::transparent) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(toQColor(key.fill));
        painter.drawEllipse(centre, radius, radius);
    }
    for (int y = 0; mask && y < stamp.size; ++y)
        for (int x = 0; x < stamp.size; ++x)
            if (!mask(x, y))
                image.setPixel(x, y, 0);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(toQColor(key.outline), ratio));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, radius, radius);
    }

    for (int y = 0; y < stamp.size; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        int from = 0;
        int to = stamp.size;
        while (from < to && row[from] == 0)
            ++from;
        while (to > from && row[to - 1] == 0)
            --to;
        stamp.pixels.insert(stamp.pixels.end(), row, row + stamp.size);
        stamp.spans.emplace_back(from, to);
    }
    return stamp;
}

const Stamp& StampCase::get(const StampKey& key, double ratio) {
    if (ratio != ratio_ || stamps_.size() > stampLimit) {
        stamps_.clear();
        ratio_ = ratio;
    }
    for (const Stamp& stamp : stamps_)
        if (stamp.key == key)
            return stamp;
    return stamps_.emplace_back(makeStamp(key, ratio));
}

} // namespace velorin

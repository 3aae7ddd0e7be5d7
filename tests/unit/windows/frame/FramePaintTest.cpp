// The lines around the windows look the same drawn in pieces and drawn at once.
#include "windows/frame/FramePaint.h"
#include "windows/frame/LookColors.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace velorin {
namespace {

struct Frame {
    QSize size;
    double radius;
    double scale;
};

template <class Paint>
QImage painted(const Frame& frame, Paint paint) {
    QImage image(frame.size * frame.scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(frame.scale);
    image.fill(QColor(60, 70, 80));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return image;
}

/// The largest difference of any colour of any pixel, [0, 255].
int difference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest = std::max({largest, std::abs(a.red() - b.red()),
                                std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    }
    return largest;
}

TEST(FramePaintTest, TheLinesAreThoseOfRoundedBoxesAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        for (const double radius : {0.0, 5.0, 12.5}) {
            const Frame frame{QSize(301, 77), radius, scale};
            const QImage pieces = painted(frame, [&frame](QPainter& painter) {
                paintFrameLines(painter, frame.size, frame.radius);
            });
            const QImage whole = painted(frame, [&frame](QPainter& painter) {
                const auto stroke = [&](const QColor& colour, double inset) {
                    const double r = std::max(0.0, frame.radius - inset);
                    painter.setPen(QPen(colour, 1.0));
                    painter.drawRoundedRect(QRectF(QPointF(0, 0), QSizeF(frame.size))
                                                .adjusted(inset, inset, -inset, -inset),
                                            r, r);
                };
                stroke(look::innerLight, 1.5);
                stroke(look::ink950, 0.5);
            });
            // Where a line covers a pixel in part, the two may round differently.
            EXPECT_LE(difference(pieces, whole), 2) << "radius " << radius << ", scale " << scale;
        }
    }
}

} // namespace
} // namespace velorin

// `openerF`, the splash.
#include "windows/main/openerF.h"

#include "windows/frame/FramePaint.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WindowDrag.h"

#include <QPainter>
#include <QSvgRenderer>

#include <system_error>

namespace velorin {

namespace {

constexpr int splashWidth = 480;
constexpr int splashHeight = 300;

/// The splash for a screen with so many pixels to a logical pixel.
QImage drawSplash(double ratio) {
    const QSize size(splashWidth, splashHeight);
    QImage picture((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    const double radius = splashEllipse / 2.0;
    const QRectF whole(QPoint(), size);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setClipPath(framePath(size, radius));
    QSvgRenderer(QStringLiteral(":/look/splash.svg")).render(&painter, whole);
    painter.restore();
    const auto stroke = [&](const QColor& colour, double inset) {
        painter.setPen(QPen(colour, 1.0));
        painter.drawRoundedRect(whole.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    };
    stroke(QColor(255, 255, 255, 40), 1.5);
    stroke(look::ink950, 0.5);
    return picture;
}

std::future<QImage> beginDrawing(double ratio) {
    const auto draw = [ratio] { return drawSplash(ratio); };
    try {
        return std::async(std::launch::async, draw);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, draw);
    }
}

} // namespace

openerF::openerF(FrameState& frames)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      drawing_(beginDrawing(devicePixelRatioF())) {
    setObjectName("openerF");
    setWindowTitle(QStringLiteral("Velorin "));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(splashWidth, splashHeight);
    ApplyWindowRegion(*this, splashEllipse);
    frames.countRegion();
}

void openerF::centreOn(int screenWidth, int screenHeight) {
    move((screenWidth - width()) / 2, (screenHeight - height()) / 2);
}

void openerF::paintEvent(QPaintEvent*) {
    if (drawing_.valid())
        picture_ = drawing_.get();
    if (picture_.devicePixelRatio() != devicePixelRatioF())
        picture_ = drawSplash(devicePixelRatioF());
    QPainter(this).drawImage(0, 0, picture_);
}

} // namespace velorin

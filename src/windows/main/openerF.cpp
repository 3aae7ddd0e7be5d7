// `openerF`, the splash.
#include "windows/main/openerF.h"

#include "windows/frame/FramePaint.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WindowDrag.h"

#include <QPainter>
#include <QSvgRenderer>

namespace velorin {

namespace {

constexpr int splashWidth = 480;
constexpr int splashHeight = 300;

} // namespace

openerF::openerF(FrameState& frames)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
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
    const double radius = splashEllipse / 2.0;
    const QRectF whole(rect());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setClipPath(framePath(size(), radius));
    QSvgRenderer(QStringLiteral(":/look/splash.svg")).render(&painter, whole);
    painter.restore();
    const auto stroke = [&](const QColor& colour, double inset) {
        painter.setPen(QPen(colour, 1.0));
        painter.drawRoundedRect(whole.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    };
    stroke(QColor(255, 255, 255, 40), 1.5);
    stroke(look::ink950, 0.5);
}

} // namespace velorin

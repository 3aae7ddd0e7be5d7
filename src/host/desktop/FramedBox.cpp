// A message box in the program's own frame.
#include "host/desktop/FramedBox.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/PaperPaint.h"

#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>

namespace velorin::host {

namespace {

constexpr int band = 26;
constexpr int titleLeft = 14;
constexpr int titlePx = 13;
constexpr int pictureSize = 32;
constexpr double radius = 13.0;

QString pictureOf(QMessageBox::Icon icon) {
    switch (icon) {
    case QMessageBox::Warning:
    case QMessageBox::Critical:
        return QStringLiteral(":/look/row-failed.svg");
    case QMessageBox::Information:
    case QMessageBox::Question:
        return QStringLiteral(":/look/velorin.svg");
    case QMessageBox::NoIcon:
        break;
    }
    return {};
}

} // namespace

FramedBox::FramedBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons,
                     QWidget* parent)
    : QMessageBox(icon, title, text, buttons, parent) {
    setTextFormat(Qt::PlainText);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setContentsMargins(0, band, 0, 0);
    const QString picture = pictureOf(icon);
    if (picture.isEmpty())
        return;
    setIconPixmap(QIcon(picture).pixmap(QSize(pictureSize, pictureSize), devicePixelRatioF()));
    // One line of text is beside the middle of the picture.
    if (auto* const label = findChild<QLabel*>("qt_msgbox_label")) {
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        label->setMinimumHeight(pictureSize);
    }
}

void FramedBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPaper(painter, size(), radius, band);
    QFont bold = font();
    bold.setPixelSize(titlePx);
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(look::cream);
    painter.drawText(QRect(titleLeft, 0, width() - 2 * titleLeft, band), Qt::AlignVCenter,
                     windowTitle());
}

// Without a compositor the corners would be black.
void FramedBox::resizeEvent(QResizeEvent* event) {
    QMessageBox::resizeEvent(event);
    setMask(QRegion(framePath(size(), radius).toFillPolygon().toPolygon()));
}

void FramedBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && event->position().y() < band)
        held_ = event->position().toPoint();
}

void FramedBox::mouseMoveEvent(QMouseEvent* event) {
    if (held_)
        move(event->globalPosition().toPoint() - *held_);
}

void FramedBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        held_.reset();
}

} // namespace velorin::host

// A picture control: a widget that shows a drawing surface.
#include "windows/main/PictureBox.h"

#include "windows/frame/LookColors.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace velorin {

namespace {

int buttonNumber(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return leftButton;
    case Qt::RightButton:
        return rightButton;
    case Qt::MiddleButton:
        return middleButton;
    default:
        return noButton;
    }
}

int heldButton(Qt::MouseButtons buttons) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        if (buttons.testFlag(button))
            return buttonNumber(button);
    return noButton;
}

int shiftState(Qt::KeyboardModifiers keys) {
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) |
           (keys.testFlag(Qt::ControlModifier) ? 2 : 0) | (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

constexpr int focusRingPx = 2;

bool isWhole(double ratio) {
    return ratio == std::floor(ratio);
}

} // namespace

PictureBox::PictureBox(QWidget* parent, const QString& name, Colour ground, FillStyle style,
                       Colour fill)
    : QWidget(parent), picture(ground, style, fill) {
    setObjectName(name);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAttribute(Qt::WA_OpaquePaintEvent);
    picture.onTouched = [this](const QRect& touched) { showTouched(touched); };
}

bool PictureBox::place(int x, int y, int widthPx, int heightPx) {
    if (widthPx < 0 || heightPx < 0)
        return false;
    setGeometry(x, y, widthPx, heightPx);
    fitPicture();
    return true;
}

void PictureBox::fitPicture() {
    if (paints_)
        picture.resize(width(), height(), devicePixelRatioF());
}

void PictureBox::showTouched(const QRect& touched) {
    // At a fractional scale the edge of a logical rectangle is inside a device pixel.
    update(isWhole(picture.ratio()) ? touched : touched.adjusted(-1, -1, 1, 1));
}

void PictureBox::setMousePointer(int pointer) {
    if (pointer == pointer_)
        return;
    pointer_ = pointer;
    switch (pointer) {
    case pointerCross:
        setCursor(Qt::CrossCursor);
        break;
    case pointerUpArrow:
        setCursor(Qt::UpArrowCursor);
        break;
    case pointerOwn:
        setCursor(ownCursor_);
        break;
    default:
        setCursor(Qt::ArrowCursor);
    }
}

void PictureBox::setOwnCursor(const QCursor& cursor) {
    ownCursor_ = cursor;
    if (pointer_ == pointerOwn)
        setCursor(ownCursor_);
}

void PictureBox::setHasPen(bool hasPen) {
    if (hasPen == hasPen_)
        return;
    hasPen_ = hasPen;
    hasRing_ = hasFocus();
    update();
}

void PictureBox::paintNothing() {
    paints_ = false;
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    picture.resize(0, 0);
}

void PictureBox::paintEvent(QPaintEvent* event) {
    if (!paints_)
        return;
    picture.clearTouched();
    const double ratio = devicePixelRatioF();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (ratio != picture.ratio()) {
        // The picture is redrawn after this event: what is drawn inside a paint event shows too
        // late.
        QMetaObject::invokeMethod(
            this,
            [this] {
                fitPicture();
                if (onRescaled)
                    onRescaled();
            },
            Qt::QueuedConnection);
        painter.drawImage(QRectF(rect()), picture.image());
        return;
    }
    if (!isWhole(ratio)) // the last device line may be outside the picture
        painter.fillRect(event->rect(), toQColor(picture.ground()));
    // Painted in device pixels, unscaled: scaling would blur at a fractional ratio.
    painter.scale(1.0 / ratio, 1.0 / ratio);
    QImage pixels =
        QImage(picture.image().constBits(), picture.image().width(), picture.image().height(),
               picture.image().bytesPerLine(), picture.image().format());
    painter.drawImage(QPointF(0, 0), pixels);
    painter.resetTransform();
    if (paintAbove)
        paintAbove(painter);
    if (hasRing_ && !hasPen_) {
        painter.setPen(QPen(look::sky, focusRingPx));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void PictureBox::resizeEvent(QResizeEvent*) {
    fitPicture();
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (onMouseDown)
        onMouseDown(buttonNumber(event->button()), shiftState(event->modifiers()), place.x(),
                    place.y());
    if (onPressed)
        onPressed();
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (onMouseMove)
        onMouseMove(heldButton(event->buttons()), shiftState(event->modifiers()), place.x(),
                    place.y());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    if (onMouseUp)
        onMouseUp(buttonNumber(event->button()), shiftState(event->modifiers()), place.x(),
                  place.y());
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    // When a window becomes active again or a menu closes, the ring stays as it was.
    const Qt::FocusReason reason = event->reason();
    const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    const bool isTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    hasRing_ = comesBack ? hadRing_ : isTab;
    update();
    if (onGotFocus)
        onGotFocus();
}

void PictureBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    hadRing_ = hasRing_;
    hasRing_ = false;
    update();
    if (onLostFocus)
        onLostFocus();
}

} // namespace velorin

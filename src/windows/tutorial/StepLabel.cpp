// The label of a lesson's step.
#include "windows/tutorial/StepLabel.h"

#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace velorin {

namespace {

constexpr int tickSize = 16;
constexpr int tickTop = 4;
constexpr int tickFromEnd = 24; ///< x 376 in a label 400 wide

} // namespace

StepLabel::StepLabel(const QString& caption, QWidget* parent) : QLabel(caption, parent) {
    setTextFormat(Qt::PlainText);
    setProperty("role", "step");
    setProperty("hot", false);
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
}

void StepLabel::setHighlighted(bool highlighted) {
    highlighted_ = highlighted;
    showHot();
}

void StepLabel::setDone(bool done) {
    if (done == done_)
        return;
    done_ = done;
    setAccessibleName(done ? text() + QStringLiteral(" done") : QString());
    update();
}

void StepLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!done_)
        return;
    QPainter painter(this);
    lookIcon(QStringLiteral("step-done"))
        .paint(&painter, QRect(width() - tickFromEnd, tickTop, tickSize, tickSize), Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void StepLabel::showHot() {
    setStyled(*this, "hot", highlighted_ || hasFocus());
}

void StepLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        pressed_ = true;
}

// Ignores the second press of a double click, so the step is performed once.
void StepLabel::mouseDoubleClickEvent(QMouseEvent*) {}

void StepLabel::mouseMoveEvent(QMouseEvent*) {
    if (onMove)
        onMove();
}

void StepLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_ = false;
    if (rect().contains(event->position().toPoint()))
        click();
}

void StepLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            click();
        break;
    case Qt::Key_Down:
        focusNextPrevChild(true);
        break;
    case Qt::Key_Up:
        focusNextPrevChild(false);
        break;
    default:
        QLabel::keyPressEvent(event);
    }
}

void StepLabel::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    showHot();
}

void StepLabel::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    showHot();
}

// A step may take minutes and the window may be destroyed meanwhile, so the handler is copied.
void StepLabel::click() {
    const auto handler = onClick;
    if (handler)
        handler();
}

} // namespace velorin

// The label of a lesson's step.
#include "tutorial/StepLabel.h"

#include "shell/PlacedControls.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace velorin {

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

void StepLabel::showHot() {
    setStyled(*this, "hot", highlighted_ || hasFocus());
}

void StepLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        pressed_ = true;
}

// The second press of a double click: the step is not performed twice.
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

// A step may last for minutes, and the window may be closed meanwhile.
void StepLabel::click() {
    const auto handler = onClick;
    if (handler)
        handler();
}

} // namespace velorin

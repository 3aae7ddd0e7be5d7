// The directions of a scroll bar's keys, arrows and wheel.
#include "bars/ScrollBar.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace velorin {

ScrollBar::ScrollBar(Qt::Orientation direction, QWidget* parent, Top top)
    : QScrollBar(direction, parent) {
    if (top == Top::high) {
        setInvertedAppearance(true);
        connect(this, &QScrollBar::actionTriggered, this, &ScrollBar::turnRound);
    }
}

// The library's own bar goes back by the right arrow key.
void ScrollBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        triggerAction(SliderSingleStepSub);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        triggerAction(SliderSingleStepAdd);
        break;
    default:
        QScrollBar::keyPressEvent(event);
    }
}

void ScrollBar::wheelEvent(QWheelEvent* event) {
    if (!invertedAppearance()) {
        QScrollBar::wheelEvent(event);
        return;
    }
    const int turned = event->angleDelta().y();
    if (turned != 0)
        triggerAction(turned > 0 ? SliderSingleStepSub : SliderSingleStepAdd);
    event->accept();
}

// An inverted bar draws its high value at the top, but its arrows still count the other way.
void ScrollBar::turnRound(int action) {
    switch (action) {
    case SliderSingleStepAdd:
        setSliderPosition(value() - singleStep());
        break;
    case SliderSingleStepSub:
        setSliderPosition(value() + singleStep());
        break;
    case SliderPageStepAdd:
        setSliderPosition(value() - pageStep());
        break;
    case SliderPageStepSub:
        setSliderPosition(value() + pageStep());
        break;
    case SliderToMinimum:
        setSliderPosition(maximum());
        break;
    case SliderToMaximum:
        setSliderPosition(minimum());
        break;
    default: // the thumb is dragged, and follows the pointer as it is
        break;
    }
}

} // namespace velorin

// A scroll bar whose keys, arrows and wheel move towards the end that they point at.
#include "windows/frame/ScrollBar.h"

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

// In Qt's own vertical bar the right arrow key moves back.
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

// An inverted bar draws its high value at the top, but Qt's arrows still move the other way.
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
    default: // a drag of the thumb follows the pointer correctly
        break;
    }
}

} // namespace velorin

// Counts the steps of a wheel that turns by less than a notch at a time.
#pragma once

#include <QWheelEvent>

namespace velorin {

/// One for each thing that is turned. What is less than a step is kept for the next turn, so that a
/// touchpad scrolls however slowly the finger goes; a turn back begins from nothing.
class WheelTurn {
public:
    /// The whole steps that are due; `angle` in eighths of a degree, a notch of a wheel being 120.
    int steps(int angle) {
        if ((angle < 0) != (rest_ < 0))
            rest_ = 0;
        rest_ += angle;
        const int due = rest_ / QWheelEvent::DefaultDeltasPerStep;
        rest_ -= due * QWheelEvent::DefaultDeltasPerStep;
        return due;
    }

private:
    int rest_ = 0;
};

} // namespace velorin

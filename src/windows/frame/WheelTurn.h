// Counts the steps of a wheel or touchpad that turns by less than a notch at a time.
#pragma once

#include <QWheelEvent>

namespace velorin {

/// One for each scroll direction. Less than a step is kept for the next turn, so a touchpad scrolls
/// even if the finger moves slowly. A turn in the other direction starts at 0.
class WheelTurn {
public:
    /// The whole steps that are due. `angle` is in eighths of a degree; a notch of a wheel is 120.
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

// What the free part of the strip shows in a window of a given width.
#include "windows/strip/StripPlan.h"

namespace velorin {

namespace {

constexpr int firstLeft = 600;
constexpr int buttonStep = 38;

struct Step {
    int leastWidth;
    int buttons;
    bool hasLine;
    bool hasWordMark;
    StripPlan::Arrow arrow;
};

using enum StripPlan::Arrow;

constexpr Step steps[] = {
    {1106, 4, true, true, none},     {932, 4, false, true, none},    {920, 3, false, true, inStrip},
    {882, 2, false, true, inStrip},  {844, 1, false, true, inStrip}, {806, 0, false, true, inStrip},
    {682, 0, false, false, inStrip},
};

} // namespace

int stripButtonLeft(int index) {
    return firstLeft + index * buttonStep;
}

StripPlan stripPlan(int windowWidth) {
    for (const Step& step : steps)
        if (windowWidth >= step.leastWidth)
            return {step.buttons,     true,       step.hasLine,
                    step.hasWordMark, step.arrow, stripButtonLeft(step.buttons)};
    return {0, false, false, false, inTitle, 0};
}

} // namespace velorin

// What the strip shows at which width of the window.
#include "windows/strip/StripPlan.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

using enum StripPlan::Arrow;

constexpr int exitRight = 550 + 36; ///< of the last described button, in the strip

struct Case {
    int width;
    StripPlan plan;
};

const Case cases[] = {
    {1280, {4, true, true, true, none, 752}},     {1106, {4, true, true, true, none, 752}},
    {1105, {4, true, false, true, none, 752}},    {932, {4, true, false, true, none, 752}},
    {931, {3, true, false, true, inStrip, 714}},  {920, {3, true, false, true, inStrip, 714}},
    {919, {2, true, false, true, inStrip, 676}},  {882, {2, true, false, true, inStrip, 676}},
    {881, {1, true, false, true, inStrip, 638}},  {844, {1, true, false, true, inStrip, 638}},
    {843, {0, true, false, true, inStrip, 600}},  {806, {0, true, false, true, inStrip, 600}},
    {805, {0, true, false, false, inStrip, 600}}, {682, {0, true, false, false, inStrip, 600}},
    {681, {0, false, false, false, inTitle, 0}},  {0, {0, false, false, false, inTitle, 0}},
};

} // namespace

TEST(StripPlan, EveryWidthOfTheTable) {
    for (const Case& one : cases) {
        const StripPlan plan = stripPlan(one.width);
        EXPECT_EQ(plan.buttons, one.plan.buttons) << one.width;
        EXPECT_EQ(plan.hasSeparator, one.plan.hasSeparator) << one.width;
        EXPECT_EQ(plan.hasLine, one.plan.hasLine) << one.width;
        EXPECT_EQ(plan.hasWordMark, one.plan.hasWordMark) << one.width;
        EXPECT_EQ(plan.arrow, one.plan.arrow) << one.width;
        EXPECT_EQ(plan.arrowLeft, one.plan.arrowLeft) << one.width;
    }
}

TEST(StripPlan, WhatHasGoneDoesNotComeBackInANarrowerWindow) {
    StripPlan before = stripPlan(2000);
    for (int width = 1999; width >= 0; --width) {
        const StripPlan plan = stripPlan(width);
        EXPECT_LE(plan.buttons, before.buttons) << width;
        EXPECT_LE(plan.hasLine, before.hasLine) << width;
        EXPECT_LE(plan.hasWordMark, before.hasWordMark) << width;
        before = plan;
    }
}

TEST(StripPlan, ArrowNeverCoversADescribedButton) {
    constexpr int arrowWidth = 24;
    constexpr int frame = 50; // of the window, beside the strip
    for (int width = 0; width < 1400; ++width) {
        const StripPlan plan = stripPlan(width);
        if (plan.arrow != inStrip)
            continue;
        EXPECT_GT(plan.arrowLeft, exitRight) << width;
        EXPECT_LE(plan.arrowLeft + arrowWidth, width - frame) << "cut at " << width;
    }
}

TEST(StripPlan, ButtonsAreTwoPixelsApart) {
    EXPECT_EQ(stripButtonLeft(0), 600);
    EXPECT_EQ(stripButtonLeft(3), 714);
}

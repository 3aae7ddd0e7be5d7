// The captions of the progress display.
#include "playback/Progress.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(ProgressCaption, IsAPercentageWithoutADigitForNothing) {
    EXPECT_EQ(percentCaption(0.0F), " %");
    EXPECT_EQ(percentCaption(0.42F), "42 %");
    EXPECT_EQ(percentCaption(1.0F), "100 %");
    EXPECT_EQ(percentCaption(12.0F), "1200 %");
    EXPECT_EQ(percentCaption(-0.5F), "-50 %");
}

TEST(ProgressCaption, RoundsHalvesToEven) {
    EXPECT_EQ(percentCaption(0.125F), "12 %");
    EXPECT_EQ(percentCaption(0.375F), "38 %");
    EXPECT_EQ(percentCaption(0.005F), " %"); // single precision: a little below a half
}

TEST(ProgressCaption, OfAnEncodingHasTwoDigitsOnEachSide) {
    EXPECT_EQ(exactPercent(0, 7), "00.00%");
    EXPECT_EQ(exactPercent(1, 3), "33.33%");
    EXPECT_EQ(exactPercent(1, 30), "03.33%");
    EXPECT_EQ(exactPercent(3, 3), "100.00%");
}

TEST(ProgressCaption, WritesTwoDigitsAtLeast) {
    EXPECT_EQ(twoDigits(0), "00");
    EXPECT_EQ(twoDigits(7), "07");
    EXPECT_EQ(twoDigits(123), "123");
    EXPECT_EQ(twoDigits(-3), "-03");
}

} // namespace
} // namespace velorin

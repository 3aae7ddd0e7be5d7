// The captions of the progress display.
#include "playback/Progress.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(ProgressCaption, IsAPercentageWithoutADigitForNothing) {
    EXPECT_EQ(percentCaption(0.0), " %");
    EXPECT_EQ(percentCaption(0.42), "42 %");
    EXPECT_EQ(percentCaption(1.0), "100 %");
    EXPECT_EQ(percentCaption(12.0), "1200 %");
    EXPECT_EQ(percentCaption(-0.5), "-50 %");
}

TEST(ProgressCaption, RoundsHalvesToEven) {
    EXPECT_EQ(percentCaption(0.125), "12 %");
    EXPECT_EQ(percentCaption(0.375), "38 %");
    EXPECT_EQ(percentCaption(0.005), " %");
}

// In single precision 0.025 is a little more, so the percentage is above 2.5.
TEST(ProgressCaption, OfAShareInSinglePrecisionIsThatOfItsExactValue) {
    EXPECT_EQ(percentCaption(0.025), "2 %");
    EXPECT_EQ(percentCaption(playedShare(25, 1000)), "3 %");
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

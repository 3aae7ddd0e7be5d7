// How long a conversion will still take.
#include "windows/making/TimeLeft.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

constexpr std::int64_t second = 1'000'000'000;

TEST(TimeLeftTest, ItIsUnknownInTheFirstSecondAndWhileNothingIsDone) {
    TimeLeft left;
    left.start(5 * second);
    EXPECT_EQ(left.seconds(0.5, 5 * second + second / 2), std::nullopt);
    EXPECT_EQ(left.seconds(0.0, 9 * second), std::nullopt);
}

TEST(TimeLeftTest, WhatIsLeftTakesAsLongAsItsShareTookSoFar) {
    TimeLeft left;
    left.start(5 * second);
    EXPECT_EQ(left.seconds(0.25, 7 * second), 6); // 2 s for a quarter
    EXPECT_EQ(left.seconds(0.5, 8 * second + 1), 4) << "rounded up";
    EXPECT_EQ(left.seconds(1.0, 9 * second), 0);
    EXPECT_EQ(left.seconds(2.0, 9 * second), 0);
}

TEST(TimeLeftTest, WordsSayOneSecondAndMinutes) {
    EXPECT_EQ(timeLeftText(4), "about 4 seconds left");
    EXPECT_EQ(timeLeftText(1), "about 1 second left");
    EXPECT_EQ(timeLeftText(119), "about 119 seconds left");
    EXPECT_EQ(timeLeftText(120), "about 2 minutes left");
    EXPECT_EQ(timeLeftText(200), "about 3 minutes left");
}

} // namespace
} // namespace velorin

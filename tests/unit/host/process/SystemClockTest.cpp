// The host's clocks.
#include "host/process/SystemClock.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

TEST(TheSystemClock, HoldsForTheWholeTime) {
    SystemClock clock;
    const std::int64_t start = clock.QueryPerformanceCounter();
    clock.hold(45);
    EXPECT_GE(clock.QueryPerformanceCounter() - start, 45'000'000);
}

TEST(TheSystemClock, CountsTheSameMillisecondsOnBothCounters) {
    SystemClock clock;
    const std::uint32_t before = clock.GetTickCount();
    const auto between = static_cast<std::uint32_t>(clock.QueryPerformanceCounter() / 1'000'000);
    const std::uint32_t after = clock.GetTickCount();
    EXPECT_LE(between - before, after - before);
    EXPECT_EQ(clock.QueryPerformanceFrequency(), 1'000'000'000);
}

TEST(TheSystemClock, DoesNotHoldForNoTime) {
    SystemClock clock;
    clock.hold(0);
    clock.hold(-1);
}

} // namespace
} // namespace velorin::host

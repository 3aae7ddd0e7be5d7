// The stopwatch table, its arithmetic, and the wait that processes events.
#include "playback/StopWatch.h"

#include "support/VirtualTime.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

/// A counter that advances by `step` ticks with every reading.
struct SteppingClock final : platform::Clock {
    std::int64_t counter = 0;
    std::int64_t step = 0;
    std::int64_t frequency = 1000;
    std::int64_t QueryPerformanceCounter() override { return counter += step; }
    std::int64_t QueryPerformanceFrequency() override { return frequency; }
    std::uint32_t GetTickCount() override { return 0; }
    void hold(int) override {}
};

struct StopWatches : testing::Test {
    scripted::VirtualTime time;
    StopWatch watch{time, time};
};

TEST_F(StopWatches, AreNumberedFrom1) {
    EXPECT_EQ(watch.StopWatchNew(), 1);
    EXPECT_EQ(watch.StopWatchNew(), 2);
}

TEST_F(StopWatches, ANumberThatIsNotInTheTableDoesNotStartAndReadsMinus1) {
    watch.StopWatchNew();
    EXPECT_EQ(watch.StopWatchStart(0), 0);
    EXPECT_EQ(watch.StopWatchStart(2), 0);
    EXPECT_EQ(watch.StopWatchElapsed(0), -1.0F);
    EXPECT_EQ(watch.StopWatchElapsed(2), -1.0F);
}

TEST_F(StopWatches, OneThatDoesNotRunReads0) {
    const int number = watch.StopWatchNew();
    time.pass(scripted::nanosecondsPerSecond);
    EXPECT_EQ(watch.StopWatchElapsed(number), 0.0F);
}

TEST_F(StopWatches, EachCountsFromItsOwnStart) {
    const int first = watch.StopWatchNew();
    const int second = watch.StopWatchNew();
    EXPECT_EQ(watch.StopWatchStart(first), 1);
    time.pass(scripted::nanosecondsPerSecond);
    EXPECT_EQ(watch.StopWatchStart(second), 1);
    time.pass(scripted::nanosecondsPerSecond / 2);
    EXPECT_EQ(watch.StopWatchElapsed(first), 1.5F);
    EXPECT_EQ(watch.StopWatchElapsed(second), 0.5F);
    EXPECT_EQ(watch.StopWatchStart(first), 1);
    EXPECT_EQ(watch.StopWatchElapsed(first), 0.0F);
}

// Ticks 10 and 20 give an overhead of 10 ticks, tick 30 is the start; the reading at tick 40 is 40
// - 30 - 10.
TEST_F(StopWatches, TheTimeOfOneReadingIsTakenOff) {
    SteppingClock clock;
    clock.step = 10;
    StopWatch stepping(clock, time);
    const int number = stepping.StopWatchNew();
    stepping.StopWatchStart(number);
    EXPECT_EQ(stepping.StopWatchElapsed(number), 0.0F);
    EXPECT_EQ(stepping.StopWatchElapsed(number), 0.010F);
}

TEST_F(StopWatches, WithoutACounterNothingStarts) {
    SteppingClock clock;
    clock.frequency = 0;
    StopWatch still(clock, time);
    const int number = still.StopWatchNew();
    EXPECT_EQ(still.StopWatchStart(number), 0);
    EXPECT_EQ(still.StopWatchElapsed(number), 0.0F);
}

TEST_F(StopWatches, AWaitServesEventsAndLastsItsTime) {
    const int number = watch.StopWatchNew();
    watch.StopWatchStart(number);
    int served = 0;
    time.plan(100'000'000, [&] { ++served; });
    time.plan(200'000'000, [&] { ++served; });
    time.plan(700'000'000, [&] { ++served; });
    watch.WaitSeconds(number, 0.5F);
    EXPECT_EQ(served, 2);
    EXPECT_EQ(time.now(), 500'000'000);
}

TEST_F(StopWatches, AWaitCountsFromItsOwnBeginning) {
    const int number = watch.StopWatchNew();
    watch.StopWatchStart(number);
    time.hold(250);
    watch.WaitSeconds(number, 0.5F);
    EXPECT_EQ(time.now(), 750'000'000);
}

// 0.04 in single precision is 0.03999999910593, less than a nanosecond before the round moment.
TEST_F(StopWatches, AWaitEndsAtTheTickNearestToItsSum) {
    const int number = watch.StopWatchNew();
    watch.StopWatchStart(number);
    int served = 0;
    time.plan(40'000'000, [&] { ++served; });
    watch.WaitSeconds(number, 0.04F);
    time.Yield();
    EXPECT_EQ(served, 0);
    EXPECT_EQ(time.now(), 39'999'999);
}

// At a thousand ticks a second 0.0004 is between two of them; the first is still too early.
TEST_F(StopWatches, AWaitFinerThanATickEndsAtTheNextOne) {
    struct Loop final : platform::MessageLoop {
        SteppingClock& clock;
        explicit Loop(SteppingClock& ticking) : clock(ticking) {}
        void Yield() override {}
        void waitUntil(std::int64_t counter) override {
            clock.counter = std::max(clock.counter, counter);
        }
        [[nodiscard]] bool isEnding() const override { return false; }
        void end() override {}
    };
    SteppingClock clock;
    Loop loop(clock);
    StopWatch coarse(clock, loop);
    const int number = coarse.StopWatchNew();
    coarse.StopWatchStart(number);
    coarse.WaitSeconds(number, 0.0004F);
    EXPECT_EQ(clock.counter, 1);
}

TEST_F(StopWatches, AWaitOfNothingDoesNotYield) {
    const int number = watch.StopWatchNew();
    watch.StopWatchStart(number);
    int served = 0;
    time.plan(0, [&] { ++served; });
    watch.WaitSeconds(number, 0.0F);
    watch.WaitSeconds(number, -1.0F);
    EXPECT_EQ(served, 0);
}

TEST_F(StopWatches, AWaitEndsWithTheProgram) {
    const int number = watch.StopWatchNew();
    watch.StopWatchStart(number);
    time.plan(100'000'000, [&] { time.end(); });
    watch.WaitSeconds(number, 0.5F);
    EXPECT_EQ(time.now(), 100'000'000);
}

/// A message loop on the stepping clock that counts its calls.
struct CountingLoop final : platform::MessageLoop {
    int waits = 0;
    int rests = 0;
    void Yield() override {}
    void waitUntil(std::int64_t) override { ++waits; }
    void rest() override { ++rests; }
    void end() override {}
    [[nodiscard]] bool isEnding() const override { return false; }
};

// A song with a negative tempo has columns of negative length.
TEST(AWait, ThatIsOverAtOnceRestsAndAnyOtherDoesNot) {
    SteppingClock clock;
    CountingLoop loop;
    StopWatch watch(clock, loop);
    const int number = watch.StopWatchNew();
    ASSERT_EQ(watch.StopWatchStart(number), 1);
    watch.WaitSeconds(number, -0.12F);
    watch.WaitSeconds(number, 0.0F);
    EXPECT_EQ(loop.rests, 2);
    EXPECT_EQ(loop.waits, 0);
    clock.step = 1;
    watch.WaitSeconds(number, 0.1F);
    EXPECT_EQ(loop.rests, 2);
    EXPECT_GT(loop.waits, 10);
}

} // namespace
} // namespace velorin

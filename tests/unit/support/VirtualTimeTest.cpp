// The virtual clock and the order of planned actions.
#include "support/VirtualTime.h"

#include <gtest/gtest.h>

#include <string>

using namespace scripted;

namespace {

constexpr Nanoseconds second = nanosecondsPerSecond;

struct Tape {
    VirtualTime time;
    std::string text;

    void plan(Nanoseconds delay, const std::string& name) {
        time.plan(delay, [this, name] { text += name + "@" + time.stamp() + " "; });
    }
    void waitFor(Nanoseconds duration) {
        const Nanoseconds end = time.now() + duration;
        while (time.now() < end && !time.isEnding())
            time.waitUntil(end);
    }
};

} // namespace

TEST(VirtualTime, WaitServesWhatIsPlannedInItAndEndsOnTime) {
    Tape tape;
    tape.plan(2 * second, "b");
    tape.plan(second, "a");
    tape.waitFor(3 * second);
    EXPECT_EQ(tape.text, "a@1.000 b@2.000 ");
    EXPECT_EQ(tape.time.now(), 3 * second);
}

TEST(VirtualTime, AtATieTheWaitEndsFirst) {
    Tape tape;
    tape.plan(second, "a");
    tape.waitFor(second);
    EXPECT_EQ(tape.text, "");
    tape.time.Yield();
    EXPECT_EQ(tape.text, "a@1.000 ");
}

TEST(VirtualTime, HoldPassesWhatIsPlannedWhichThenRunsAtTheNextYield) {
    Tape tape;
    tape.plan(10'000'000, "a");
    tape.time.hold(45);
    EXPECT_EQ(tape.text, "");
    EXPECT_EQ(tape.time.GetTickCount(), 45U);
    tape.time.Yield();
    EXPECT_EQ(tape.text, "a@0.045 ");
}

TEST(VirtualTime, WhatIsPlannedForNowDuringAYieldRunsAtTheNext) {
    Tape tape;
    tape.time.plan(0, [&tape] { tape.plan(0, "inner"); });
    tape.time.Yield();
    EXPECT_EQ(tape.text, "");
    tape.time.Yield();
    EXPECT_EQ(tape.text, "inner@0.000 ");
}

TEST(VirtualTime, YieldInsideAPlannedThingServesTheRest) {
    Tape tape;
    tape.time.plan(0, [&tape] {
        tape.time.Yield();
        tape.text += "first ";
    });
    tape.plan(0, "second");
    tape.time.Yield();
    EXPECT_EQ(tape.text, "second@0.000 first ");
}

TEST(VirtualTime, TimersFireInsideWaitsUnlessTheyAreCancelled) {
    Tape tape;
    tape.time.after(1000, [&tape] { tape.text += "one "; });
    const int other = tape.time.after(1500, [&tape] { tape.text += "two "; });
    tape.time.cancel(other);
    tape.time.pass(2 * second);
    EXPECT_EQ(tape.text, "one ");
}

TEST(VirtualTime, PassingTimeServesWhatIsDueAtItsEnd) {
    Tape tape;
    tape.plan(second, "a");
    tape.time.pass(second);
    EXPECT_EQ(tape.text, "a@1.000 ");
}

TEST(VirtualTime, CommandIsBrokenOffAfterADay) {
    Tape tape;
    tape.waitFor(second);
    tape.time.beginCommand();
    int rounds = 0;
    while (!tape.time.isEnding() && ++rounds < 100)
        tape.waitFor(3600 * second);
    EXPECT_EQ(rounds, 24);
    EXPECT_TRUE(tape.time.endCommand());
    EXPECT_FALSE(tape.time.isEnding());
    EXPECT_EQ(tape.time.now(), second + oneDay);
}

TEST(VirtualTime, EndLetsNoWaitLast) {
    Tape tape;
    tape.time.end();
    tape.time.waitUntil(second);
    EXPECT_TRUE(tape.time.isEnding());
    EXPECT_EQ(tape.time.now(), 0);
}

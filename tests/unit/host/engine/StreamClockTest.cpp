// Mapping moments of the clock to frames of the stream.
#include "host/engine/StreamClock.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

constexpr std::int64_t second = 1'000'000'000;

// 44,100 frames to the second make 441 frames 10 ms, which are exact in both.
constexpr std::int64_t tenMs = 10'000'000;

TEST(TheStreamClock, PutsAMessageTheDelayAfterItsMoment) {
    StreamClock clock(44100, 320);
    clock.observe(second, 0);
    EXPECT_EQ(clock.dueFrame(second), 320);
    EXPECT_EQ(clock.dueFrame(second + tenMs), 441 + 320);
}

TEST(TheStreamClock, TrustsTheEarliestPulls) {
    StreamClock clock(44100, 320);
    for (int buffer = 0; buffer < 100; ++buffer) {
        const std::int64_t late = buffer % 4 == 0 ? 0 : 900'000; // three of four are 0.9 ms late
        clock.observe(second + buffer * tenMs + late, buffer * 441);
    }
    EXPECT_NEAR(static_cast<double>(clock.dueFrame(2 * second)), 44100 + 320, 2);
}

TEST(TheStreamClock, KeepsDistancesWhenPullsAreLate) {
    StreamClock clock(44100, 320);
    std::int64_t before = 0;
    for (int buffer = 0; buffer < 1000; ++buffer) {
        const std::int64_t late = (buffer * 7919) % 4'000'000; // scattered over 4 ms
        clock.observe(second + buffer * tenMs + late, buffer * 441);
        const std::int64_t due = clock.dueFrame(second + buffer * tenMs);
        if (buffer > 300) {
            EXPECT_NEAR(static_cast<double>(due - before), 441, 2);
        }
        before = due;
    }
}

TEST(TheStreamClock, NeverPutsAMessageTooLateOnceItKnowsThePulls) {
    StreamClock clock(44100, 256 + 64);
    for (int buffer = 0; buffer < 2000; ++buffer) {
        // Two buffers at once, then a pause of two, as a sound server with larger ones pulls.
        const std::int64_t now = second + (buffer / 2) * 2 * tenMs;
        clock.observe(now, buffer * 441);
        if (buffer > 2) {
            EXPECT_GE(clock.dueFrame(now), buffer * 441);
        }
    }
}

TEST(TheStreamClock, FollowsACardThatRunsFast) {
    StreamClock clock(44100, 0);
    // 100 parts in a million fast: after 20 s it is 88 frames ahead.
    for (int buffer = 0; buffer <= 2000; ++buffer) {
        clock.observe(second + buffer * (tenMs - 1000), buffer * 441);
    }
    const std::int64_t now = second + 2000 * (tenMs - 1000);
    EXPECT_NEAR(static_cast<double>(clock.dueFrame(now)), 2000 * 441, 12);
}

TEST(TheStreamClock, FollowsAServerThatRunsMuchFasterWithoutAJump) {
    StreamClock clock(44100, 0);
    constexpr std::int64_t shorter = tenMs - 8000; // 800 parts in a million
    std::int64_t before = -441;
    for (int buffer = 0; buffer <= 2000; ++buffer) {
        const std::int64_t now = second + buffer * shorter;
        clock.observe(now, buffer * 441);
        const std::int64_t due = clock.dueFrame(now);
        EXPECT_NEAR(static_cast<double>(due - before), 441, 1);
        before = due;
    }
}

TEST(TheStreamClock, KeepsDistancesOverABufferThatCameTooLate) {
    StreamClock clock(44100, 320);
    std::int64_t before = 0;
    for (int buffer = 0; buffer < 4000; ++buffer) {
        const std::int64_t lost = buffer < 500 ? 0 : 12'000'000; // the server has stalled for 12 ms
        const std::int64_t now = second + buffer * tenMs + lost;
        clock.observe(now, buffer * 441);
        const std::int64_t due = clock.dueFrame(now);
        if (buffer > 0 && buffer != 500) {
            EXPECT_NEAR(static_cast<double>(due - before), 441, 1);
        }
        before = due;
    }
    EXPECT_NEAR(static_cast<double>(before), 3999 * 441 + 320, 2) << "made up for in the end";
}

TEST(TheStreamClock, FollowsAtOnceWhenPullsComeMuchEarlier) {
    StreamClock clock(44100, 0);
    clock.observe(second, 0);
    clock.observe(second + tenMs, 441);
    clock.observe(second + tenMs, 882);
    EXPECT_EQ(clock.dueFrame(second + tenMs), 882);
}

TEST(TheStreamClock, StartsAgainAfterAStall) {
    StreamClock clock(44100, 0);
    clock.observe(second, 0);
    clock.observe(9 * second, 441);
    EXPECT_EQ(clock.dueFrame(9 * second + tenMs), 882);
}

// Pulls by the clock for two seconds, so that the stream is no longer beginning.
std::int64_t begun(StreamClock& clock, std::int64_t frame = 0) {
    for (int buffer = 0; buffer < 200; ++buffer, frame += 441)
        clock.observe(second + frame / 441 * tenMs, frame);
    return frame;
}

TEST(TheStreamClock, StaysWhereItIsWhenAServerCatchesUpAfterAStall) {
    StreamClock clock(44100, 0);
    std::int64_t frame = begun(clock);
    const std::int64_t line = clock.dueFrame(5 * second);
    const std::int64_t later = second + frame / 441 * tenMs + 200'000'000;
    for (int buffer = 0; buffer < 20; ++buffer, frame += 441)
        clock.observe(later, frame);
    EXPECT_NEAR(static_cast<double>(clock.dueFrame(5 * second)), static_cast<double>(line), 10);
}

TEST(TheStreamClock, StartsAgainWhenPullsStayLateAfterAStall) {
    StreamClock clock(44100, 0);
    std::int64_t frame = begun(clock);
    const std::int64_t lost = 200'000'000;
    for (int buffer = 0; buffer < 7; ++buffer, frame += 441)
        clock.observe(second + frame / 441 * tenMs + lost, frame);
    EXPECT_EQ(clock.dueFrame(second + frame / 441 * tenMs + lost), frame);
}

TEST(TheStreamClock, LetsACardFillItsBuffersWhileItBegins) {
    StreamClock clock(44100, 0);
    clock.observe(second, 0);
    EXPECT_LE(clock.earliestNs(441), second);
    clock.observe(second, 441);
    EXPECT_LE(clock.earliestNs(882), second);
}

// The server has asked for far too much, so every pull comes as early as it may.
TEST(TheStreamClock, GivesWayToEarlyPullsByOnePartInAHundred) {
    StreamClock clock(44100, 0);
    std::int64_t frame = begun(clock);
    const auto pullEarly = [&] {
        const std::int64_t earliest = clock.earliestNs(frame);
        clock.observe(earliest, frame);
        frame += 441;
        return earliest;
    };
    const std::int64_t start = pullEarly();
    const std::int64_t due = clock.dueFrame(second);
    for (int buffer = 0; buffer < 99; ++buffer)
        pullEarly();
    const std::int64_t end = pullEarly();
    EXPECT_NEAR(static_cast<double>(end - start), 0.99 * second, 0.001 * second) << "of a second";
    EXPECT_NEAR(static_cast<double>(clock.dueFrame(second) - due), 441, 10);
}

TEST(TheStreamClock, PutsAMessageThatHasWaitedIntoThePast) {
    StreamClock clock(44100, 320);
    clock.observe(9 * second, 0);
    EXPECT_LT(clock.dueFrame(second), 0);
}

} // namespace
} // namespace velorin::host

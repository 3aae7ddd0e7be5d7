// Ticks and microseconds.
#include "midifile/TickTime.h"

#include <gtest/gtest.h>

namespace velorin::midifile {
namespace {

TEST(ATempoMap, GivesTheTimeOfATickAndBack) {
    TempoMap map(TickLength(100)); // ticks of 5 ms
    map.add(200, 1'000'000);       // then of 10 ms
    EXPECT_DOUBLE_EQ(map.usAt(100), 500e3);
    EXPECT_DOUBLE_EQ(map.usAt(200), 1e6);
    EXPECT_DOUBLE_EQ(map.usAt(300), 2e6);
    EXPECT_DOUBLE_EQ(map.tickAt(500e3), 100.0);
    EXPECT_DOUBLE_EQ(map.tickAt(1.5e6), 250.0);
}

TEST(ATempoMap, TakesTheLastOfTwoTemposOfATick) {
    TempoMap map(TickLength(100));
    map.add(0, 1'000'000);
    map.add(0, 250'000);
    EXPECT_DOUBLE_EQ(map.usAt(100), 250e3);
    EXPECT_EQ(map.changes().size(), 1U);
}

TEST(ATick, OfFilmFramesHasNoTempo) {
    const TickLength length(0xE728); // 25 frames of 40 ticks
    EXPECT_FALSE(length.isMetrical());
    EXPECT_DOUBLE_EQ(length.us(1), 1000.0);
}

TEST(ATick, OfDropFramesIsATouchLonger) {
    EXPECT_NEAR(TickLength(0xE364).us(0), 1e6 / 29.97 / 100, 0.01); // 29 is 29.97
}

} // namespace
} // namespace velorin::midifile

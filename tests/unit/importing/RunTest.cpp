// Groups of runs of nearly the same tempo.
#include "importing/Runs.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

using Runs = std::vector<importing::Run>;

constexpr double second = 1e6; ///< in microseconds

// Ticks of 5 ms, and from 5 s on one in 500 longer: 10 ms more in the end, as near as a run may be.
TEST(ARunOfTempos, HasTheFirstOfTwoThatLastEquallyLong) {
    midifile::TempoMap map(midifile::TickLength(100));
    map.add(1000, 501'000);
    const Runs runs = runsOf(map, 10 * second);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_DOUBLE_EQ(runs[0].usPerTick, 5000.0);
}

TEST(AGroupOfRuns, HasTheTempoOfItsLongestRun) {
    const Runs runs{{0.0, 12 * second, 0, 1, 1000.0},
                    {12 * second, 52 * second, 1, 2, 1001.0},
                    {52 * second, 63 * second, 2, 3, 1000.0}};
    const auto groups = groupsOf(runs);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].mainRun, 1U);
    EXPECT_TRUE(groups[0].isSteady);
}

TEST(AGroupOfRuns, EndsBeforeASteadyRunOfAnotherTempo) {
    const Runs runs{{0.0, 12 * second, 0, 1, 1000.0}, {12 * second, 24 * second, 1, 2, 1010.0}};
    EXPECT_EQ(groupsOf(runs).size(), 2U);
}

TEST(AGroupOfRuns, MayBeARunOfTenSeconds) {
    const Runs runs{{0.0, 12 * second, 0, 1, 1000.0}, {12 * second, 22 * second, 1, 2, 1010.0}};
    EXPECT_EQ(groupsOf(runs).size(), 2U);
}

TEST(AGroupOfRuns, ThatBeginsWithShortOnesHasTheTempoOfTheSteadyOne) {
    const Runs runs{{0.0, 4 * second, 0, 1, 1500.0},
                    {4 * second, 6 * second, 1, 2, 1200.0},
                    {6 * second, 17 * second, 2, 3, 1000.0}};
    const auto groups = groupsOf(runs);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].mainRun, 2U);
}

} // namespace
} // namespace velorin::importing::test

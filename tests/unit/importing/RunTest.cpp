// Groups of runs of nearly the same tempo.
#include "importing/Runs.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

using Runs = std::vector<importing::Run>;

constexpr double second = 1e6; ///< in microseconds

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

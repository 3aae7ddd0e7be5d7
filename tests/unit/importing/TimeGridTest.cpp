// Columns and moments of a grid.
#include "importing/TimeGrid.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

TEST(ATimeGrid, GivesTheMomentOfAColumnAndTheColumnOfAMoment) {
    Stretch first;
    first.legs = {{0.0, 0.25, 1e-5}, {1e6, 10.25, 2e-5}}; // 10 columns a second, then 20
    Stretch second;
    second.us = 2e6;
    second.firstColumn = 31;
    second.legs = {{2e6, 0.5, 1e-5}};
    const TimeGrid grid({first, second});
    EXPECT_DOUBLE_EQ(grid.columnAt(5e5), 5.25);
    EXPECT_DOUBLE_EQ(grid.usAt(5.25), 5e5);
    EXPECT_DOUBLE_EQ(grid.columnAt(1.5e6), 20.25);
    EXPECT_DOUBLE_EQ(grid.usAt(20.25), 1.5e6);
    EXPECT_DOUBLE_EQ(grid.columnAt(2.5e6), 36.5);
    EXPECT_DOUBLE_EQ(grid.usAt(36.5), 2.5e6);
    EXPECT_EQ(grid.stretchOf(30), 0U);
    EXPECT_EQ(grid.stretchOf(31), 1U);
}

} // namespace
} // namespace velorin::importing::test

// A value, or why there is none.
#include "platform/Result.h"

#include <gtest/gtest.h>

#include <memory>

namespace platform {
namespace {

Result<int> half(int number) {
    if (number % 2 != 0)
        return Failure{"is odd"};
    return number / 2;
}

Result<void> checkEven(int number) {
    const auto halved = half(number);
    if (!halved)
        return halved.failure();
    return {};
}

TEST(AResult, HasItsValueAndNoReason) {
    auto result = half(8);
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 4);
    EXPECT_EQ(result.reason(), "");
}

TEST(AResult, SaysWhyThereIsNoValue) {
    const auto result = half(7);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.reason(), "is odd");
}

TEST(AResult, PassesAFailureOn) {
    EXPECT_TRUE(checkEven(8));
    EXPECT_EQ(checkEven(8).reason(), "");
    EXPECT_FALSE(checkEven(7));
    EXPECT_EQ(checkEven(7).reason(), "is odd");
}

TEST(AResult, GivesAwayAValueThatOnlyMoves) {
    Result<std::unique_ptr<int>> result(std::make_unique<int>(5));
    const std::unique_ptr<int> taken = std::move(*result);
    EXPECT_EQ(*taken, 5);
}

} // namespace
} // namespace platform

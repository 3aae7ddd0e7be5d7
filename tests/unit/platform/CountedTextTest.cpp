// A count with its noun.
#include "platform/CountedText.h"

#include <gtest/gtest.h>

using platform::counted;

namespace {

TEST(CountedText, OnlyOneIsSingular) {
    EXPECT_EQ(counted(0, "note"), "0 notes");
    EXPECT_EQ(counted(1, "note"), "1 note");
    EXPECT_EQ(counted(28, "chord mark"), "28 chord marks");
    EXPECT_EQ(counted(-1, "column"), "-1 columns");
}

TEST(CountedText, TheCountDecidesAndTheDigitsAreShown) {
    EXPECT_EQ(counted(1, "one", "bar"), "one bar");
    EXPECT_EQ(counted(1482, "1,482", "note"), "1,482 notes");
}

} // namespace

// The names of the pitches.
#include "model/NoteTables.h"

#include <gtest/gtest.h>

using namespace velorin;

TEST(NoteTables, NamesAreTheOctaveAndTheLetter) {
    EXPECT_EQ(NoteName(127), "0C");
    EXPECT_EQ(NoteName(121), "0F#");
    EXPECT_EQ(NoteName(67), "5C");
    EXPECT_EQ(NoteName(66), "5C#");
    EXPECT_EQ(NoteName(1), "10F#");
    EXPECT_EQ(NoteName(0), "10G");
}

TEST(NoteTables, OutsideTheKeyboardThereIsNoName) {
    EXPECT_FALSE(NoteName(-1).has_value());
    EXPECT_FALSE(NoteName(128).has_value());
}

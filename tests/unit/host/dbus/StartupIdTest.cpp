// What a startup id says, and how it is quoted.
#include "host/dbus/StartupId.h"

#include <gtest/gtest.h>

using namespace velorin::host;

TEST(AStartupId, EndsInTheTimeOfTheClick) {
    EXPECT_EQ(clickTimeOf("files-4711-desk-velorin-0_TIME123456"), 123456U);
    EXPECT_EQ(clickTimeOf("a_TIME1_TIME4294967295"), 4294967295U) << "the last one counts";
    EXPECT_EQ(clickTimeOf("_TIME0"), 0U);
}

TEST(AStartupId, MayHaveNoTime) {
    EXPECT_EQ(clickTimeOf(""), std::nullopt);
    EXPECT_EQ(clickTimeOf("8c2a9f10-wayland"), std::nullopt);
    EXPECT_EQ(clickTimeOf("files_TIME"), std::nullopt);
    EXPECT_EQ(clickTimeOf("files_TIME12x"), std::nullopt);
    EXPECT_EQ(clickTimeOf("files_TIME-1"), std::nullopt);
    EXPECT_EQ(clickTimeOf("files_TIME4294967296"), std::nullopt) << "one more than 32 bits";
}

TEST(TheEndOfAStart, QuotesTheId) {
    EXPECT_EQ(startupEndMessage("a b_TIME1"), "remove: ID=\"a b_TIME1\"");
    EXPECT_EQ(startupEndMessage("a\"b\\c"), "remove: ID=\"a\\\"b\\\\c\"");
}

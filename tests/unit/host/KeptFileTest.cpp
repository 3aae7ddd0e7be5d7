// A kept text on the disk: whole or not at all, and the names it comes back under.
#include "host/KeptFile.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace velorin::host;

TEST(KeptFileTest, SealedTextComesBackWithItsNumber) {
    const auto back = unsealed(sealed({"1,2\r\nkept 3 4\r\n", 7}));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->text, "1,2\r\nkept 3 4\r\n");
    EXPECT_EQ(back->number, 7U);
}

TEST(KeptFileTest, TextIsReadableAsItStands) {
    EXPECT_TRUE(sealed({"60\r\n24\r\n", 1}).starts_with("60\r\n24\r\nkept 1 "));
}

TEST(KeptFileTest, FileCutAnywhereIsNotTaken) {
    const std::string bytes = sealed({"60,1060\r\n24,24\r\n", 12});
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(unsealed(bytes.substr(0, length))) << length;
}

TEST(KeptFileTest, DamagedFileIsNotTaken) {
    std::string bytes = sealed({"60,1060\r\n24,24\r\n", 12});
    bytes[1] = '\0';
    EXPECT_FALSE(unsealed(bytes));
    EXPECT_FALSE(unsealed(std::string(4096, '\0')));
    EXPECT_FALSE(unsealed("60\r\nkept 1 2 \r\n"));
    EXPECT_FALSE(unsealed("60\r\nkept\r\n"));
}

TEST(KeptFileTest, RecoveredNameTellsTheLocalTime) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(recoveredName(86399), "recovered 1970-01-01 23-59-59.sng");
    EXPECT_EQ(recoveredName(86399, 2), "recovered 1970-01-01 23-59-59 (2).sng");
}

TEST(KeptFileTest, OldestRecoveredScoresGoFirst) {
    EXPECT_EQ(recoveredBeyond({"recovered 2026-01-02 00-00-00.sng",
                               "recovered 2026-01-01 00-00-00 (2).sng",
                               "recovered 2026-01-01 00-00-00.sng"},
                              1),
              (std::vector<std::string>{"recovered 2026-01-01 00-00-00.sng",
                                        "recovered 2026-01-01 00-00-00 (2).sng"}));
}

TEST(KeptFileTest, FilesWithOtherNamesAreTheUsersOwn) {
    EXPECT_TRUE(recoveredBeyond({"recovered.sng", "recovered 2026-01-01 00-00-00 waltz.sng",
                                 "my recovered 2026-01-01 00-00-00.sng", "waltz.sng"},
                                0)
                    .empty());
}

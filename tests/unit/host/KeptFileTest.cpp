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

namespace {

/// 2026-01-01 00:00:00 UTC and so many seconds.
constexpr std::time_t newYear = 1767225600;

std::vector<std::string> names(const std::initializer_list<const char*> given) {
    return {given.begin(), given.end()};
}

} // namespace

TEST(KeptFileTest, RecoveriesThatAppearedFirstGoFirstWhateverTheirNames) {
    setenv("TZ", "UTC", 1);
    tzset();
    const std::vector<ScoreFile> files{{"recovered 2026-01-01 00-00-00.sng", newYear, 9},
                                       {"recovered 2026-01-01 00-00-09.sng", newYear + 9, 5},
                                       {"recovered 2026-01-01 00-00-09 (2).sng", newYear + 9, 7}};
    EXPECT_EQ(recoveredBeyond(files, 3), names({}));
    EXPECT_EQ(recoveredBeyond(files, 2), names({"recovered 2026-01-01 00-00-09.sng"}));
    EXPECT_EQ(recoveredBeyond(files, 1), names({"recovered 2026-01-01 00-00-09.sng",
                                                "recovered 2026-01-01 00-00-09 (2).sng"}));
}

TEST(KeptFileTest, RecoveriesOfOneMomentGoInTheOrderOfTheirNames) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(recoveredBeyond({{"recovered 2026-01-01 00-00-01.sng", newYear + 1, 5},
                               {"recovered 2026-01-01 00-00-00.sng", newYear, 5}},
                              1),
              names({"recovered 2026-01-01 00-00-00.sng"}));
}

TEST(KeptFileTest, FilesWithOtherNamesAreTheUsersOwn) {
    for (const char* name : {"recovered.sng", "recovered 2026-01-01 00-00-00 waltz.sng",
                             "my recovered 2026-01-01 00-00-00.sng", "waltz.sng"})
        EXPECT_FALSE(isUntouchedRecovery({name, newYear, 5})) << name;
}

TEST(KeptFileTest, RecoveryThatTheUserHasSavedOverIsTheUsersOwn) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_TRUE(isUntouchedRecovery({"recovered 2026-01-01 00-00-00.sng", newYear, 5}));
    EXPECT_FALSE(isUntouchedRecovery({"recovered 2026-01-01 00-00-00.sng", newYear + 60, 5}));
}

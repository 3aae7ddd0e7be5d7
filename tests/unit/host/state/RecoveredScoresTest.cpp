// Names of recovered scores, and which are removed first.
#include "host/state/RecoveredScores.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace velorin::host;

TEST(RecoveredScoresTest, NameHasTheLocalTime) {
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

TEST(RecoveredScoresTest, OldestRecoveriesAreRemovedFirstWhateverTheirNames) {
    setenv("TZ", "UTC", 1);
    tzset();
    const std::vector<ScoreFile> files{{"recovered 2026-01-01 00-00-00.sng", newYear, 9},
                                       {"recovered 2026-01-01 00-00-09.sng", newYear + 9, 5},
                                       {"recovered 2026-01-01 00-00-09 (2).sng", newYear + 9, 7}};
    EXPECT_EQ(oldestUntouched(files, 3), names({}));
    EXPECT_EQ(oldestUntouched(files, 2), names({"recovered 2026-01-01 00-00-09.sng"}));
    EXPECT_EQ(oldestUntouched(files, 1), names({"recovered 2026-01-01 00-00-09.sng",
                                                "recovered 2026-01-01 00-00-09 (2).sng"}));
}

TEST(RecoveredScoresTest, RecoveriesOfOneMomentAreRemovedInTheOrderOfTheirNames) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(oldestUntouched({{"recovered 2026-01-01 00-00-01.sng", newYear + 1, 5},
                               {"recovered 2026-01-01 00-00-00.sng", newYear, 5}},
                              1),
              names({"recovered 2026-01-01 00-00-00.sng"}));
}

TEST(RecoveredScoresTest, FilesWithOtherNamesAreTheUsersOwn) {
    for (const char* name : {"recovered.sng", "recovered 2026-01-01 00-00-00 waltz.sng",
                             "my recovered 2026-01-01 00-00-00.sng", "waltz.sng"})
        EXPECT_FALSE(isUntouchedRecovery({name, newYear, 5})) << name;
}

TEST(RecoveredScoresTest, RecoveryThatTheUserHasSavedOverIsTheUsersOwn) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_TRUE(isUntouchedRecovery({"recovered 2026-01-01 00-00-00.sng", newYear, 5}));
    EXPECT_FALSE(isUntouchedRecovery({"recovered 2026-01-01 00-00-00.sng", newYear + 60, 5}));
}

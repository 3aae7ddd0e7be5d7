// What is too old or too much is removed, the oldest first.
#include "host/state/HistoryLimit.h"

#include "HistoryStage.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace velorin::host::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr std::time_t day = 86'400;
constexpr std::time_t now = 100 * day;

Pack pack(const char* name, int daysAgo, std::uint64_t bytes) {
    return {name, "1-2-3", 1, bytes, now - daysAgo * day, 0};
}

bool nothing(const Pack&) {
    return false;
}

TEST(ExpiredPacks, AreThoseOlderThanTheDays) {
    EXPECT_EQ(expiredPacks({pack("new", 1, 5), pack("old", 31, 5), pack("month", 30, 5)}, now, 30,
                           1000, nothing),
              Names{"old"});
}

TEST(ExpiredPacks, AreTheOldestUntilTheRestFits) {
    EXPECT_EQ(
        expiredPacks({pack("c", 1, 40), pack("a", 3, 40), pack("b", 2, 40)}, now, 30, 90, nothing),
        Names{"a"});
    EXPECT_EQ(
        expiredPacks({pack("c", 1, 40), pack("a", 3, 40), pack("b", 2, 40)}, now, 30, 79, nothing),
        (Names{"a", "b"}));
}

TEST(ExpiredPacks, AreNoneThatAreProtected) {
    const auto isA = [](const Pack& one) { return one.name == "a"; };
    EXPECT_EQ(
        expiredPacks({pack("c", 1, 40), pack("a", 31, 40), pack("b", 2, 40)}, now, 30, 50, isA),
        (Names{"b", "c"}));
}

class HistoryLimitTest : public HistoryStage {
protected:
    static void makeOld(const fs::path& path, int days) {
        const std::time_t then = std::time(nullptr) - days * day;
        const timespec times[2] = {{then, 0}, {then, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
    void runSafely(const char* text) const {
        HostHistoryStore store(history);
        (void)store.add(change(text), sheetWith(60));
        store.end(true);
    }
};

TEST_F(HistoryLimitTest, EntriesOlderThanThirtyDaysGoAtTheNextChange) {
    runSafely("old");
    makeOld(onlyPack(), 31);
    EXPECT_EQ(found(), Names{"old"});
    runSafely("new");
    EXPECT_EQ(found(), Names{"new"});
}

TEST_F(HistoryLimitTest, OldestEntriesGoWhileAllHaveTooManyBytes) {
    HistorySettings settings;
    settings.packBytes = 500;
    settings.mostBytes = 1500;
    {
        HostHistoryStore store(history, nullptr, settings);
        for (int i = 0; i < 20; ++i)
            (void)store.add(change(std::to_string(i)), sheetWith(60));
    }
    HostHistoryStore store(history, nullptr, settings);
    EXPECT_LE(store.bytesUsed(), 1500U);
    EXPECT_GE(store.bytesUsed(), 700U);
    ASSERT_FALSE(store.entries().empty());
    EXPECT_EQ(store.entries().back().text, "19");
}

TEST_F(HistoryLimitTest, CurrentStateStaysHoweverOldItIs) {
    HistorySettings settings;
    std::int64_t nowUs = 1'000'000 * static_cast<std::int64_t>(std::time(nullptr));
    settings.nowUs = [&nowUs] { return nowUs; };
    std::int64_t one = 0;
    {
        HostHistoryStore store(history, nullptr, settings);
        one = store.add(change("one"), sheetWith(60));
        nowUs += 40 * 86'400'000'000;
        platform::HistoryEntry saved = change("saved");
        saved.state = one;
        (void)store.add(saved, {});
    }
    EXPECT_EQ(names(".states").size(), 2U);
    EXPECT_EQ(HostHistoryStore(history).score(one), sheetWith(60));
}

TEST_F(HistoryLimitTest, RunThatIsStillToBeRecoveredLosesNothing) {
    cutShortWith(sheetWith(61));
    makeOld(onlyPack(), 31);
    runSafely("new");
    EXPECT_EQ(found().size(), 2U);
    EXPECT_EQ(recover().size(), 1U);
    runSafely("newer");
    EXPECT_EQ(found(), (Names{"new", "newer"}));
}

} // namespace
} // namespace velorin::host::test

// Crash recovery: the next run finds the current state of a run that was killed.
#include "HistoryStage.h"
#include "host/state/RecoveredScores.h"
#include "support/ScriptedNotices.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <ctime>

namespace velorin::host::test {
namespace {

namespace fs = std::filesystem;

class HistoryRecoveryTest : public HistoryStage {
protected:
    /// A score that was recovered earlier. Its text was last changed that long after the start of
    /// 2030.
    void addRecovery(int seconds) {
        constexpr std::time_t start = 1893456000;
        const fs::path path = songs / recoveredName(start + seconds);
        put(path, "earlier");
        const timespec times[2] = {{0, UTIME_OMIT}, {start + seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
        earlier.push_back(path);
    }

    /// Waits until the clock of the file system moves on.
    void passAMoment() const {
        const fs::path probe = folder.path() / "probe";
        struct stat first {};
        struct stat now {};
        do {
            put(probe, "tick");
            stat(probe.c_str(), &now);
            if (first.st_ctim.tv_sec == 0)
                first = now;
        } while (now.st_ctim.tv_sec == first.st_ctim.tv_sec &&
                 now.st_ctim.tv_nsec == first.st_ctim.tv_nsec);
    }

    /// A run that ends cleanly with this score, which no file holds.
    void endUnsaved(const std::string& score) const {
        HostHistoryStore store(history);
        (void)store.add(change("drawn"), score);
        store.end(false);
    }

    std::vector<fs::path> earlier;
};

TEST_F(HistoryRecoveryTest, LastStateOfARunThatWasCutShortComesBack) {
    cutShort([](HostHistoryStore& store) {
        for (const std::int16_t pitch : {60, 61, 62})
            (void)store.add(change("drawn"), sheetWith(pitch));
    });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(62));
    EXPECT_EQ(logged, "velorin: the score of a run that was cut short is in " +
                          (songs / names[0]).string() + "\n");
}

TEST_F(HistoryRecoveryTest, StateComesBackOnceOnlyAndStaysInTheHistory) {
    cutShortWith(sheetWith(60));
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_EQ(recover().size(), 0U);
    EXPECT_EQ(found().size(), 1U);
    EXPECT_EQ(filesIn(history), 1);
}

TEST_F(HistoryRecoveryTest, FileHasTheTimeOfTheChange) {
    HistorySettings settings;
    settings.nowUs = [] { return std::int64_t{1'893'456'005'700'000}; };
    {
        HostHistoryStore store(history, nullptr, settings);
        (void)store.add(change("drawn"), sheetWith(60));
        store.end(false);
    }
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(names[0], recoveredName(1'893'456'005));
    struct stat status {};
    ASSERT_EQ(stat((songs / names[0]).c_str(), &status), 0);
    EXPECT_EQ(status.st_mtime, 1'893'456'005);
}

TEST_F(HistoryRecoveryTest, StateThatTheUserWentBackToComesBack) {
    cutShort([](HostHistoryStore& store) {
        const auto one = store.add(change("one"), sheetWith(60));
        (void)store.add(change("two"), sheetWith(61));
        store.setCurrent(one);
    });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(60));
}

TEST_F(HistoryRecoveryTest, SheetOfTheStartDoesNotComeBack) {
    cutShort([](HostHistoryStore& store) {
        (void)store.add(change("one"), sheetWith(60));
        store.setCurrent(0);
    });
    EXPECT_TRUE(recover().empty());
    EXPECT_EQ(names(".open").size(), 0U);
}

TEST_F(HistoryRecoveryTest, ScoreWithoutNotesAndChordMarksDoesNotComeBack) {
    cutShortWith(blankSheet());
    EXPECT_TRUE(recover().empty());
    EXPECT_EQ(names(".open").size(), 0U);
}

TEST_F(HistoryRecoveryTest, ScoreWithAChordMarkAloneComesBack) {
    const auto score = std::make_unique<Score>();
    score->PolyArray.write(1, 5, 1);
    cutShortWith(keptText(*score));
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), keptText(*score));
}

TEST_F(HistoryRecoveryTest, RunThatEndsSafeHasNothingToRecover) {
    {
        HostHistoryStore store(history);
        (void)store.add(change("one"), sheetWith(60));
        store.end(true);
    }
    EXPECT_TRUE(recover().empty());
    EXPECT_EQ(filesIn(history), 1) << "its pack";
}

TEST_F(HistoryRecoveryTest, CleanEndAndCrashAreDistinguished) {
    cutShortWith(sheetWith(60));
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_FALSE(recovered[0].endedCleanly);

    endUnsaved(sheetWith(61));
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedCleanly);
    EXPECT_EQ(logged, "velorin: the score of a run that ended without saving it is in " +
                          (songs / recovered[0].name).string() + "\n");
}

TEST_F(HistoryRecoveryTest, HowARunEndedIsKnownAfterARecoveryThatFailed) {
    endUnsaved(sheetWith(60));
    fs::remove(songs);
    EXPECT_TRUE(recover().empty());
    fs::create_directory(songs);
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedCleanly);
}

TEST_F(HistoryRecoveryTest, StateWaitsWhileTheFolderForScoresIsMissing) {
    cutShortWith(sheetWith(60));
    fs::remove(songs);
    scripted::ScriptedNotices notices;
    {
        HostHistoryStore store(history, &notices);
        EXPECT_TRUE(store.recoverInto(songs.string()).empty());
        store.clear(); // which leaves what is not recovered
    }
    ASSERT_EQ(notices.posted.size(), 1U);
    EXPECT_EQ(notices.posted[0].text,
              "The score of an earlier run stays in \"" + history.string() +
                  "\", since nothing can be written to \"" + songs.string() +
                  "\". Make room there or allow writing, and start Velorin again.");
    fs::create_directory(songs);
    EXPECT_EQ(recover().size(), 1U);
}

TEST_F(HistoryRecoveryTest, RunningCopyIsLeftAlone) {
    int toChild[2];
    int toParent[2];
    ASSERT_EQ(pipe(toChild) + pipe(toParent), 0);
    const pid_t child = fork();
    char byte = 0;
    if (child == 0) {
        close(toChild[1]);
        HostHistoryStore store(history);
        (void)store.add(change("alive"), sheetWith(60));
        (void)!write(toParent[1], &byte, 1);
        (void)!read(toChild[0], &byte, 1); // until the parent closes its end
        _exit(0);
    }
    ASSERT_EQ(read(toParent[0], &byte, 1), 1);
    EXPECT_TRUE(recover().empty());
    close(toChild[1]);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(recover().size(), 1U);
}

TEST_F(HistoryRecoveryTest, LatestWholeStateComesBackInPlaceOfADamagedOne) {
    cutShort([](HostHistoryStore& store) {
        (void)store.add(change("one"), sheetWith(60));
        (void)store.add(change("two"), sheetWith(61));
        (void)store.add(change("three"), sheetWith(62));
    });
    std::string bytes = bytesOf(onlyPack());
    bytes[bytes.size() - 10] ^= 1;
    put(onlyPack(), bytes);
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(61));
}

TEST_F(HistoryRecoveryTest, StateThatWasBeingWrittenIsDropped) {
    cutShort([](HostHistoryStore& store) {
        (void)store.add(change("one"), sheetWith(60));
        (void)store.add(change("two"), sheetWith(61));
    });
    const std::string bytes = bytesOf(onlyPack());
    put(onlyPack(), bytes.substr(0, bytes.size() - 20));
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(60));
    EXPECT_FALSE(fs::exists(history / "damaged"));
}

TEST_F(HistoryRecoveryTest, StateInAnEarlierPackComesBack) {
    HistorySettings settings;
    settings.packBytes = 250; // one state each
    {
        HostHistoryStore store(history, nullptr, settings);
        const auto one = store.add(change("one"), sheetWith(60));
        for (int i = 0; i < 5; ++i)
            (void)store.add(change("more"), sheetWith(61));
        store.setCurrent(one);
        store.end(false);
    }
    EXPECT_GE(names(".states").size(), 6U);
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(60));
}

// The folder of recovered scores

TEST_F(HistoryRecoveryTest, LastTwentyRecoveredScoresAreKept) {
    put(songs / "waltz.sng", "mine");
    for (int second = 0; second < 25; ++second)
        addRecovery(second);
    cutShortWith(sheetWith(60));
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(filesIn(songs), 21);
    EXPECT_EQ(song(names[0]), sheetWith(60));
    EXPECT_FALSE(fs::exists(earlier[5]));
    EXPECT_TRUE(fs::exists(earlier[6]));
    EXPECT_TRUE(fs::exists(songs / "waltz.sng"));
}

TEST_F(HistoryRecoveryTest, NewlyRecoveredScoreStaysAmongTwentyThatAreDatedLater) {
    for (int second = 0; second < 20; ++second)
        addRecovery(second);
    passAMoment();
    cutShortWith(sheetWith(60));
    const auto first = recover();
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(song(first[0]), sheetWith(60));
    EXPECT_FALSE(fs::exists(earlier[0]));
    EXPECT_EQ(filesIn(songs), 20);

    cutShortWith(sheetWith(61));
    const auto second = recover();
    ASSERT_EQ(second.size(), 1U);
    EXPECT_EQ(song(first[0]), sheetWith(60)) << "though its date is before all others";
    EXPECT_EQ(song(second[0]), sheetWith(61));
    EXPECT_FALSE(fs::exists(earlier[1]));
    EXPECT_EQ(filesIn(songs), 20);
}

TEST_F(HistoryRecoveryTest, NoneOfManyScoresRecoveredAtOnceIsRemoved) {
    addRecovery(0);
    for (int run = 0; run < 22; ++run)
        cutShortWith(sheetWith(60));
    EXPECT_EQ(recover().size(), 22U);
    EXPECT_FALSE(fs::exists(earlier[0]));
    EXPECT_EQ(filesIn(songs), 22);
}

TEST_F(HistoryRecoveryTest, RecoveredScoreThatTheUserHasSavedOverStays) {
    for (int second = 0; second < 20; ++second)
        addRecovery(second);
    put(earlier[0], "mine now");
    cutShortWith(sheetWith(60));
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_EQ(readFile(earlier[0]), "mine now");
    EXPECT_EQ(filesIn(songs), 21);
}

} // namespace
} // namespace velorin::host::test

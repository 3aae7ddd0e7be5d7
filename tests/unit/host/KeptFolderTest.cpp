// What outlives the process: texts of runs that were cut short, found by the next run.
#include "host/KeptFolder.h"

#include "support/ScriptedNotices.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

using namespace velorin::host;
namespace fs = std::filesystem;

namespace {

class KeptFolderTest : public testing::Test {
protected:
    KeptFolderTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-kept-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        songs = folder / "Songs";
        state = folder / "state" / "velorin";
        fs::create_directory(songs);
    }
    ~KeptFolderTest() override { fs::remove_all(folder); }

    /// A run that ends without a word, as by kill -9.
    void cutShort(const std::function<void(KeptFolder&)>& run) const {
        const pid_t child = fork();
        if (child == 0) {
            KeptFolder kept(state);
            run(kept);
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }

    /// What the next run finds; its lines on standard error go to `told`.
    std::vector<std::string> recover() {
        testing::internal::CaptureStderr();
        recovered = KeptFolder(state).recoverInto(songs.string());
        told = testing::internal::GetCapturedStderr();
        std::vector<std::string> names;
        for (const platform::RecoveredText& text : recovered)
            names.push_back(text.name);
        return names;
    }

    /// A score that was recovered earlier, of a text that was last changed so long after the start
    /// of 2030.
    void addRecovery(int seconds) {
        constexpr std::time_t start = 1893456000;
        const fs::path path = songs / recoveredName(start + seconds);
        std::ofstream(path) << "earlier";
        const timespec times[2] = {{0, UTIME_OMIT}, {start + seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
        earlier.push_back(path);
    }

    /// Returns when the clock of the file system has gone on.
    void passAMoment() const {
        const fs::path probe = folder / "probe";
        struct stat first {};
        struct stat now {};
        do {
            std::ofstream(probe) << "tick";
            stat(probe.c_str(), &now);
            if (first.st_ctim.tv_sec == 0)
                first = now;
        } while (now.st_ctim.tv_sec == first.st_ctim.tv_sec &&
                 now.st_ctim.tv_nsec == first.st_ctim.tv_nsec);
    }

    [[nodiscard]] std::string song(const std::string& name) const {
        return readWhole(songs / name).value_or("no such file");
    }

    [[nodiscard]] static std::ptrdiff_t filesIn(const fs::path& path) {
        return std::distance(fs::directory_iterator(path), {});
    }

    fs::path folder;
    fs::path songs;
    fs::path state;
    std::string told;
    std::vector<platform::RecoveredText> recovered;
    std::vector<fs::path> earlier;
};

} // namespace

TEST_F(KeptFolderTest, LastTextOfARunThatWasCutShortComesBack) {
    cutShort([](KeptFolder& kept) {
        for (const char* text : {"one", "two", "three"})
            kept.keep(text);
    });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), "three");
    EXPECT_EQ(told, "velorin: the score of a run that was cut short is in " +
                        (songs / names[0]).string() + "\n");
}

TEST_F(KeptFolderTest, TextComesBackOnceOnly) {
    cutShort([](KeptFolder& kept) { kept.keep("one"); });
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_EQ(recover().size(), 0U);
    EXPECT_EQ(filesIn(state), 0);
}

TEST_F(KeptFolderTest, TextThatIsSettledOnTheDiskComesBackToo) {
    {
        KeptFolder kept(state);
        kept.keep("settled"); // the end waits for the disk and leaves what is kept
    }
    EXPECT_EQ(filesIn(state), 1); // one file of the run, and no lock
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), "settled");
}

TEST_F(KeptFolderTest, ForgottenTextDoesNotComeBack) {
    cutShort([](KeptFolder& kept) {
        kept.keep("one");
        kept.forget();
    });
    EXPECT_TRUE(recover().empty());
}

TEST_F(KeptFolderTest, RunThatForgotLeavesNoFile) {
    {
        KeptFolder kept(state);
        kept.keep("one");
        kept.keep("two");
        kept.forget();
    }
    EXPECT_EQ(filesIn(state), 0);
}

TEST_F(KeptFolderTest, RunThatKeepsNothingMakesNoFolder) {
    {
        KeptFolder kept(state);
        kept.forget();
        EXPECT_TRUE(kept.recoverInto(songs.string()).empty());
    }
    EXPECT_FALSE(fs::exists(state));
}

TEST_F(KeptFolderTest, TextKeptAgainAfterForgettingComesBack) {
    cutShort([](KeptFolder& kept) {
        kept.keep("one");
        kept.forget();
        kept.keep("two");
    });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), "two");
}

TEST_F(KeptFolderTest, RunThatGoesOnIsLeftAlone) {
    int toChild[2];
    int toParent[2];
    ASSERT_EQ(pipe(toChild) + pipe(toParent), 0);
    const pid_t child = fork();
    char byte = 0;
    if (child == 0) {
        close(toChild[1]);
        KeptFolder kept(state);
        kept.keep("alive");
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

TEST_F(KeptFolderTest, DamagedPartDoesNotHideTheWholeText) {
    cutShort([](KeptFolder& kept) { kept.keep("whole"); });
    std::ofstream(state / "1-2-3.9.part") << "cut sho";
    std::ofstream(state / "1-2-3.score") << sealed({"older and whole", 8});
    const auto names = recover();
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(song(names[0]), "older and whole");
    EXPECT_EQ(song(names[1]), "whole");
}

TEST_F(KeptFolderTest, FilesOfOthersInTheFolderStay) {
    cutShort([](KeptFolder& kept) { kept.keep("one"); });
    std::ofstream(state / "notes.txt") << "mine";
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_TRUE(fs::exists(state / "notes.txt"));
    EXPECT_EQ(filesIn(state), 1);
}

TEST_F(KeptFolderTest, LastTwentyRecoveredScoresAreKept) {
    std::ofstream(songs / "waltz.sng") << "mine";
    for (int second = 0; second < 25; ++second)
        addRecovery(second);
    cutShort([](KeptFolder& kept) { kept.keep("newest"); });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(filesIn(songs), 21);
    EXPECT_EQ(song(names[0]), "newest");
    EXPECT_FALSE(fs::exists(earlier[5]));
    EXPECT_TRUE(fs::exists(earlier[6]));
    EXPECT_TRUE(fs::exists(songs / "waltz.sng"));
}

TEST_F(KeptFolderTest, NewlyRecoveredScoreStaysAmongTwentyThatAreDatedLater) {
    for (int second = 0; second < 20; ++second)
        addRecovery(second);
    passAMoment();
    cutShort([](KeptFolder& kept) { kept.keep("first"); });
    const auto first = recover();
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(song(first[0]), "first");
    EXPECT_FALSE(fs::exists(earlier[0]));
    EXPECT_EQ(filesIn(songs), 20);

    cutShort([](KeptFolder& kept) { kept.keep("second"); });
    const auto second = recover();
    ASSERT_EQ(second.size(), 1U);
    EXPECT_EQ(song(first[0]), "first") << "though its date is before all others";
    EXPECT_EQ(song(second[0]), "second");
    EXPECT_FALSE(fs::exists(earlier[1]));
    EXPECT_EQ(filesIn(songs), 20);
}

TEST_F(KeptFolderTest, NoneOfManyScoresThatComeBackAtOnceIsTakenAway) {
    addRecovery(0);
    for (int run = 0; run < 22; ++run)
        cutShort([](KeptFolder& kept) { kept.keep("one of many"); });
    EXPECT_EQ(recover().size(), 22U);
    EXPECT_FALSE(fs::exists(earlier[0]));
    EXPECT_EQ(filesIn(songs), 22);
}

TEST_F(KeptFolderTest, RecoveredScoreThatTheUserHasSavedOverStays) {
    for (int second = 0; second < 20; ++second)
        addRecovery(second);
    std::ofstream(earlier[0]) << "mine now";
    cutShort([](KeptFolder& kept) { kept.keep("newest"); });
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_EQ(readWhole(earlier[0]), "mine now");
    EXPECT_EQ(filesIn(songs), 21);
}

TEST_F(KeptFolderTest, EndInOrderAndCrashAreToldApart) {
    cutShort([](KeptFolder& kept) { kept.keep("cut short"); });
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_FALSE(recovered[0].endedInOrder);

    { KeptFolder(state).keep("not saved"); }
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedInOrder);
    EXPECT_EQ(told, "velorin: the score of a run that ended without saving it is in " +
                        (songs / recovered[0].name).string() + "\n");
}

TEST_F(KeptFolderTest, HowARunEndedIsKnownAfterARecoveryThatFailed) {
    { KeptFolder(state).keep("not saved"); }
    fs::remove(songs);
    EXPECT_TRUE(recover().empty());
    fs::create_directory(songs);
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedInOrder);
}

TEST_F(KeptFolderTest, TextStaysWhereItIsWhileTheFolderForScoresIsMissing) {
    cutShort([](KeptFolder& kept) { kept.keep("one"); });
    fs::remove(songs);
    EXPECT_TRUE(recover().empty());
    EXPECT_NE(told, "");
    fs::create_directory(songs);
    EXPECT_EQ(recover().size(), 1U);
}

TEST_F(KeptFolderTest, FolderThatCannotBeMadeIsReportedInTheWindowOnce) {
    std::ofstream(folder / "state") << "a file stands where the folder would be";
    scripted::ScriptedNotices notices;
    {
        KeptFolder kept(state, &notices);
        kept.keep("one");
        kept.keep("two");
    }
    ASSERT_EQ(notices.posted.size(), 1U);
    EXPECT_EQ(notices.posted[0].text,
              "The score cannot be kept in \"" + state.string() +
                  "\"; a crash would lose it. Save often, and make room there or allow writing.");
}

TEST_F(KeptFolderTest, KeptTextsAreForTheUserAlone) {
    KeptFolder kept(state);
    kept.keep("one");
    EXPECT_EQ(fs::status(state).permissions(), fs::perms::owner_all);
    for (const auto& file : fs::directory_iterator(state))
        EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

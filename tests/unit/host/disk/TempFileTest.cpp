// Temp files: which are removed, and when.
#include "host/disk/TempFile.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;

class ATempFile : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> namesThere() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    // A process that creates one and is killed while it writes.
    void leaveOne() const {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            TempFile file;
            if (!file.create(folder_.path()) && !file.write("half"))
                kill(getpid(), SIGKILL);
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

    scripted::TemporaryFolder folder_;
};

TEST_F(ATempFile, IsHiddenAndHasItsOwnName) {
    TempFile one;
    TempFile other;
    ASSERT_FALSE(one.create(folder_.path()));
    ASSERT_FALSE(other.create(folder_.path()));
    EXPECT_NE(one.path(), other.path());
    EXPECT_THAT(namesThere(), testing::Each(testing::StartsWith(".")));
    EXPECT_LE(one.path().filename().string().size(), 40U);
}

TEST_F(ATempFile, OfALivingProcessStays) {
    TempFile file;
    ASSERT_FALSE(file.create(folder_.path()));
    removeAbandonedTempFiles(folder_.path());
    EXPECT_TRUE(fs::exists(file.path()));
}

TEST_F(ATempFile, OfAKilledProcessIsRemovedAndNothingElseIs) {
    leaveOne();
    ASSERT_EQ(namesThere().size(), 1U);
    std::ofstream(folder_.path() / "song.part") << "the user's";
    std::ofstream(folder_.path() / ".velorin-1.sng") << "the user's";
    removeAbandonedTempFiles(folder_.path());
    EXPECT_THAT(namesThere(), testing::UnorderedElementsAre("song.part", ".velorin-1.sng"));
}

// Opening a pipe of that name would block.
TEST_F(ATempFile, IsNotDisturbedByAPipeOrALinkOfSuchAName) {
    ASSERT_EQ(mkfifo((folder_.path() / ".velorin-1-0.part").c_str(), 0600), 0);
    std::ofstream(folder_.path() / "score") << "the user's";
    fs::create_symlink("score", folder_.path() / ".velorin-1-1.part");
    removeAbandonedTempFiles(folder_.path());
    EXPECT_TRUE(fs::exists(folder_.path() / "score"));
    EXPECT_EQ(namesThere().size(), 3U);
    removeAbandonedTempFiles(folder_.path() / "nowhere");
}

TEST_F(ATempFile, ThatWasRenamedIsNotRemoved) {
    {
        TempFile file;
        ASSERT_FALSE(file.create(folder_.path()));
        ASSERT_FALSE(file.write("whole"));
        ASSERT_FALSE(replaceDurably(file.path(), folder_.path() / "song.wav"));
    }
    EXPECT_THAT(namesThere(), testing::ElementsAre("song.wav"));
    EXPECT_EQ(readFile(folder_.path() / "song.wav"), "whole");
}

TEST_F(ATempFile, CannotBeCreatedWithoutAFolder) {
    TempFile file;
    EXPECT_EQ(file.create(folder_.path() / "nowhere"),
              std::make_error_code(std::errc::no_such_file_or_directory));
    EXPECT_EQ(file.path(), "");
}

} // namespace
} // namespace velorin::host

// Files written aside: what is removed, and when.
#include "host/AsideFile.h"
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

class AnAsideFile : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> namesThere() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    // A process that makes one and is killed while it writes.
    void leaveOne() const {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            AsideFile file;
            if (!file.make(folder_.path()) && !file.write("half"))
                kill(getpid(), SIGKILL);
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

    scripted::TemporaryFolder folder_;
};

TEST_F(AnAsideFile, IsHiddenAndHasANameOfItsOwn) {
    AsideFile one;
    AsideFile other;
    ASSERT_FALSE(one.make(folder_.path()));
    ASSERT_FALSE(other.make(folder_.path()));
    EXPECT_NE(one.path(), other.path());
    EXPECT_THAT(namesThere(), testing::Each(testing::StartsWith(".")));
    EXPECT_LE(one.path().filename().string().size(), 40U);
}

TEST_F(AnAsideFile, OfALivingProcessStays) {
    AsideFile file;
    ASSERT_FALSE(file.make(folder_.path()));
    removeAbandoned(folder_.path());
    EXPECT_TRUE(fs::exists(file.path()));
}

TEST_F(AnAsideFile, OfAKilledProcessIsRemovedAndNothingElseIs) {
    leaveOne();
    ASSERT_EQ(namesThere().size(), 1U);
    std::ofstream(folder_.path() / "song.part") << "the user's";
    std::ofstream(folder_.path() / ".velorin-1.sng") << "the user's";
    removeAbandoned(folder_.path());
    EXPECT_THAT(namesThere(), testing::UnorderedElementsAre("song.part", ".velorin-1.sng"));
}

// A pipe of that name would hold up who opens it.
TEST_F(AnAsideFile, MayFindAPipeOrALinkOfSuchAName) {
    ASSERT_EQ(mkfifo((folder_.path() / ".velorin-1-0.part").c_str(), 0600), 0);
    std::ofstream(folder_.path() / "score") << "the user's";
    fs::create_symlink("score", folder_.path() / ".velorin-1-1.part");
    removeAbandoned(folder_.path());
    EXPECT_TRUE(fs::exists(folder_.path() / "score"));
    EXPECT_EQ(namesThere().size(), 3U);
    removeAbandoned(folder_.path() / "nowhere");
}

TEST_F(AnAsideFile, ThatWasRenamedIsNotRemoved) {
    {
        AsideFile file;
        ASSERT_FALSE(file.make(folder_.path()));
        ASSERT_FALSE(file.write("whole"));
        ASSERT_FALSE(replaceDurably(file.path(), folder_.path() / "song.wav"));
    }
    EXPECT_THAT(namesThere(), testing::ElementsAre("song.wav"));
    EXPECT_EQ(readWhole(folder_.path() / "song.wav"), "whole");
}

TEST_F(AnAsideFile, CannotBeMadeWhereThereIsNoFolder) {
    AsideFile file;
    EXPECT_EQ(file.make(folder_.path() / "nowhere"),
              std::make_error_code(std::errc::no_such_file_or_directory));
    EXPECT_EQ(file.path(), "");
}

} // namespace
} // namespace velorin::host

// The lock of the one copy: who gets it, who waits for it, and where it lies.
#include "host/OneCopy.h"

#include "host/StateFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

using namespace velorin::host;
namespace fs = std::filesystem;

namespace {

class OneCopyTest : public testing::Test {
protected:
    OneCopyTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-copy-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        file = folder / "state" / "velorin.lock";
    }
    ~OneCopyTest() override { fs::remove_all(folder); }

    /// Counts the looks of a copy that waits, and gives up after the third.
    OneCopy::GoOn impatient() {
        return [this] { return ++looks < 3; };
    }

    fs::path folder;
    fs::path file;
    int looks = 0;
};

} // namespace

TEST_F(OneCopyTest, SecondCopyIsToldAtOnceThatTheFirstIsRunning) {
    OneCopy first(file);
    EXPECT_FALSE(first.isTaken());
    EXPECT_FALSE(first.isTaken()) << "by itself";
    OneCopy second(file, impatient());
    EXPECT_TRUE(second.isTaken());
    EXPECT_EQ(looks, 0);
}

TEST_F(OneCopyTest, CopyThatStartsWhileAnotherIsEndingWaitsForItsEnd) {
    auto first = std::make_unique<OneCopy>(file);
    ASSERT_FALSE(first->isTaken());
    first->announceEnd();
    OneCopy second(file, [&] {
        if (++looks == 5)
            first.reset();
        return true;
    });
    EXPECT_FALSE(second.isTaken());
    EXPECT_EQ(looks, 5);
    OneCopy third(file, impatient());
    EXPECT_TRUE(third.isTaken()) << "the second one has the place now";
    EXPECT_EQ(looks, 5) << "and is not ending";
}

TEST_F(OneCopyTest, WaitForACopyThatNeverEndsComesToAnEnd) {
    OneCopy first(file);
    ASSERT_FALSE(first.isTaken());
    first.announceEnd();
    OneCopy second(file, impatient());
    EXPECT_TRUE(second.isTaken());
    EXPECT_EQ(looks, 3);
}

TEST_F(OneCopyTest, FileOfACopyThatWasKilledWhileItEndedSaysNothing) {
    fs::create_directory(file.parent_path());
    std::ofstream(file) << "ending";
    OneCopy first(file);
    EXPECT_FALSE(first.isTaken());
    OneCopy second(file, impatient());
    EXPECT_TRUE(second.isTaken());
    EXPECT_EQ(looks, 0);
}

TEST_F(OneCopyTest, EndLeavesNoFile) {
    {
        OneCopy copy(file);
        ASSERT_FALSE(copy.isTaken());
        EXPECT_TRUE(fs::exists(file));
    }
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(OneCopyTest, RefusedCopyLeavesTheFileOfTheOther) {
    OneCopy first(file);
    ASSERT_FALSE(first.isTaken());
    {
        OneCopy second(file, impatient());
        ASSERT_TRUE(second.isTaken());
    }
    OneCopy third(file, impatient());
    EXPECT_TRUE(third.isTaken());
}

TEST_F(OneCopyTest, FolderThatCannotBeMadeKeepsNobodyFromStarting) {
    std::ofstream(folder / "state") << "a file is in the way";
    OneCopy copy(file);
    EXPECT_FALSE(copy.isTaken());
    OneCopy nowhere{fs::path()};
    EXPECT_FALSE(nowhere.isTaken());
    nowhere.announceEnd();
}

TEST_F(OneCopyTest, LockLiesInTheSessionsFolderOrElseInTheUsersOwn) {
    const fs::path state = folder / "state";
    EXPECT_EQ(oneCopyFile(folder.c_str(), state), folder / "velorin.lock");
    EXPECT_EQ(oneCopyFile(nullptr, state), state / "velorin.lock");
    EXPECT_EQ(oneCopyFile("", state), state / "velorin.lock");
    EXPECT_EQ(oneCopyFile("run", state), state / "velorin.lock") << "a relative path";
    EXPECT_EQ(oneCopyFile((folder / "none").c_str(), state), state / "velorin.lock");
    EXPECT_EQ(oneCopyFile(nullptr, {}), fs::path());
}

TEST_F(OneCopyTest, FolderThatOthersMayWriteToIsNoPlaceForTheLock) {
    const fs::path state = folder / "state";
    const fs::path shared = folder / "shared";
    fs::create_directory(shared);
    fs::permissions(shared, fs::perms::all | fs::perms::sticky_bit);
    EXPECT_EQ(oneCopyFile(shared.c_str(), state), state / "velorin.lock");
    if (geteuid() == 0) {
        fs::permissions(shared, fs::perms::owner_all);
        ASSERT_EQ(chown(shared.c_str(), 1, 1), 0);
        EXPECT_EQ(oneCopyFile(shared.c_str(), state), state / "velorin.lock");
    }
}

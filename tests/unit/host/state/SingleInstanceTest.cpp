// The lock of the single instance: who gets it, who waits for it, and where it is.
#include "host/state/SingleInstance.h"

#include "host/disk/FileLock.h"

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

class SingleInstanceTest : public testing::Test {
protected:
    SingleInstanceTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-copy-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        file = folder / "state" / "velorin.lock";
    }
    ~SingleInstanceTest() override { fs::remove_all(folder); }

    /// Counts the attempts of a waiting copy, and gives up after the third.
    SingleInstance::KeepWaiting impatient() {
        return [this] { return ++looks < 3; };
    }

    fs::path folder;
    fs::path file;
    int looks = 0;
};

} // namespace

TEST_F(SingleInstanceTest, SecondCopySeesAtOnceThatTheFirstIsRunning) {
    SingleInstance first(file);
    EXPECT_FALSE(first.isAnotherRunning());
    EXPECT_FALSE(first.isAnotherRunning()) << "by itself";
    SingleInstance second(file, impatient());
    EXPECT_TRUE(second.isAnotherRunning());
    EXPECT_EQ(looks, 0);
}

TEST_F(SingleInstanceTest, CopyThatStartsWhileAnotherIsEndingWaitsForItsEnd) {
    auto first = std::make_unique<SingleInstance>(file);
    ASSERT_FALSE(first->isAnotherRunning());
    first->announceEnd();
    SingleInstance second(file, [&] {
        if (++looks == 5)
            first.reset();
        return true;
    });
    EXPECT_FALSE(second.isAnotherRunning());
    EXPECT_EQ(looks, 5);
    SingleInstance third(file, impatient());
    EXPECT_TRUE(third.isAnotherRunning()) << "the second one has the place now";
    EXPECT_EQ(looks, 5) << "and is not ending";
}

TEST_F(SingleInstanceTest, WaitForACopyThatNeverEndsTimesOut) {
    SingleInstance first(file);
    ASSERT_FALSE(first.isAnotherRunning());
    first.announceEnd();
    SingleInstance second(file, impatient());
    EXPECT_TRUE(second.isAnotherRunning());
    EXPECT_EQ(looks, 3);
}

TEST_F(SingleInstanceTest, FileOfACopyThatWasKilledWhileItEndedIsIgnored) {
    fs::create_directory(file.parent_path());
    std::ofstream(file) << "ending";
    SingleInstance first(file);
    EXPECT_FALSE(first.isAnotherRunning());
    SingleInstance second(file, impatient());
    EXPECT_TRUE(second.isAnotherRunning());
    EXPECT_EQ(looks, 0);
}

TEST_F(SingleInstanceTest, EndLeavesNoFile) {
    {
        SingleInstance copy(file);
        ASSERT_FALSE(copy.isAnotherRunning());
        EXPECT_TRUE(fs::exists(file));
    }
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(SingleInstanceTest, SecondCopyLeavesTheFileOfTheFirst) {
    SingleInstance first(file);
    ASSERT_FALSE(first.isAnotherRunning());
    {
        SingleInstance second(file, impatient());
        ASSERT_TRUE(second.isAnotherRunning());
    }
    SingleInstance third(file, impatient());
    EXPECT_TRUE(third.isAnotherRunning());
}

TEST_F(SingleInstanceTest, FolderThatCannotBeCreatedPreventsNoStart) {
    std::ofstream(folder / "state") << "a file is in the way";
    SingleInstance copy(file);
    EXPECT_FALSE(copy.isAnotherRunning());
    SingleInstance nowhere{fs::path()};
    EXPECT_FALSE(nowhere.isAnotherRunning());
    nowhere.announceEnd();
}

TEST_F(SingleInstanceTest, LockIsInTheSessionsFolderOrElseInTheStateFolder) {
    const fs::path state = folder / "state";
    EXPECT_EQ(instanceLockFile(folder.c_str(), state), folder / "velorin.lock");
    EXPECT_EQ(instanceLockFile(nullptr, state), state / "velorin.lock");
    EXPECT_EQ(instanceLockFile("", state), state / "velorin.lock");
    EXPECT_EQ(instanceLockFile("run", state), state / "velorin.lock") << "a relative path";
    EXPECT_EQ(instanceLockFile((folder / "none").c_str(), state), state / "velorin.lock");
    EXPECT_EQ(instanceLockFile(nullptr, {}), fs::path());
}

TEST_F(SingleInstanceTest, LockIsNotInAFolderThatOthersMayWriteTo) {
    const fs::path state = folder / "state";
    const fs::path shared = folder / "shared";
    fs::create_directory(shared);
    fs::permissions(shared, fs::perms::all | fs::perms::sticky_bit);
    EXPECT_EQ(instanceLockFile(shared.c_str(), state), state / "velorin.lock");
    if (geteuid() == 0) {
        fs::permissions(shared, fs::perms::owner_all);
        ASSERT_EQ(chown(shared.c_str(), 1, 1), 0);
        EXPECT_EQ(instanceLockFile(shared.c_str(), state), state / "velorin.lock");
    }
}

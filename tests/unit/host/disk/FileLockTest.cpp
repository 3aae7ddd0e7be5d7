// Locks on files.
#include "host/disk/FileLock.h"
#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velorin::host {
namespace {

TEST(FileLock, IsHeldByOneDescriptor) {
    const scripted::TemporaryFolder folder;
    const Descriptor first = lockFile(folder.path() / "lock");
    EXPECT_TRUE(first.isOpen());
    EXPECT_FALSE(lockFile(folder.path() / "lock").isOpen());
    EXPECT_EQ(errno, EWOULDBLOCK);
    EXPECT_FALSE(lockExistingFile(folder.path() / "lock").isOpen());
}

TEST(FileLock, EndsWithItsDescriptor) {
    const scripted::TemporaryFolder folder;
    { const Descriptor first = lockFile(folder.path() / "lock"); }
    EXPECT_TRUE(lockExistingFile(folder.path() / "lock").isOpen());
}

TEST(FileLock, OfAnExistingFileCreatesNone) {
    const scripted::TemporaryFolder folder;
    EXPECT_FALSE(lockExistingFile(folder.path() / "lock").isOpen());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "lock"));
}

} // namespace
} // namespace velorin::host

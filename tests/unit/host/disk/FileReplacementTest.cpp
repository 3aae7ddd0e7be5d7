// Replacing a file: the old or the new one is whole, whatever fails.
#include "host/disk/FileReplacement.h"

#include "support/FullDisk.h"

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;
using platform::WriteError;
using test::FullDisk;

constexpr uid_t nobody = 65534;

class FileReplacementTest : public testing::Test {
protected:
    FileReplacementTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-replace-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~FileReplacementTest() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    void put(const std::string& name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    [[nodiscard]] std::string content(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder))
            found.insert(entry.path().filename().string());
        return found;
    }
    [[nodiscard]] mode_t permissions(const std::string& name) const {
        struct stat status {};
        stat((folder / name).c_str(), &status);
        return status.st_mode & 07777;
    }
    [[nodiscard]] WriteError replace(const std::string& name, const std::string& bytes,
                                     OldTail tail = OldTail::dropped) const {
        return replaceFile(folder / name, bytes, tail);
    }

    /// Runs `act` in a process of an ordinary user, who owns the folder's files, and returns its
    /// result.
    [[nodiscard]] WriteError asOrdinaryUser(const std::function<WriteError()>& act) const {
        const pid_t child = fork();
        if (child == 0) {
            const bool isBound = geteuid() != 0 || setuid(nobody) == 0;
            _exit(isBound ? static_cast<int>(act()) : 99);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return static_cast<WriteError>(WEXITSTATUS(status));
    }
    /// From now on the folder takes no new files; the ordinary user owns the files in it.
    void lockFolder() const {
        if (geteuid() == 0) {
            for (const auto& entry : fs::recursive_directory_iterator(folder))
                ASSERT_EQ(chown(entry.path().c_str(), nobody, getegid()), 0);
            ASSERT_EQ(chown(folder.c_str(), nobody, getegid()), 0);
        }
        ASSERT_EQ(chmod(folder.c_str(), 0500), 0);
    }

    fs::path folder;
};

TEST_F(FileReplacementTest, FileIsReplacedWholeAndNothingElseIsLeft) {
    put("a.sng", "a long old content");
    put("a.sng.bak", "of the user");
    EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
    EXPECT_EQ(content("a.sng"), "new");
    EXPECT_EQ(names(), (std::set<std::string>{"a.sng", "a.sng.bak"}));
    EXPECT_EQ(content("a.sng.bak"), "of the user");
}

TEST_F(FileReplacementTest, NewFileHasThePermissionsOfAnyNewFile) {
    const mode_t before = umask(027);
    EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
    umask(before);
    EXPECT_EQ(content("a.sng"), "new");
    EXPECT_EQ(permissions("a.sng"), 0640U);
}

TEST_F(FileReplacementTest, PermissionsStay) {
    put("a.sng", "old");
    for (const mode_t mode : {0600U, 0664U, 0646U}) {
        ASSERT_EQ(chmod((folder / "a.sng").c_str(), mode), 0);
        EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
        EXPECT_EQ(permissions("a.sng"), mode);
    }
}

TEST_F(FileReplacementTest, UserWhoMayWriteByAnAccessListStillMay) {
    // Version 2; then kind, permissions and user of each entry: owner rw, user 12345 rw, group r,
    // mask rw, others none.
    constexpr std::array<unsigned char, 44> list{2,  0, 0, 0,                         //
                                                 1,  0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                                 2,  0, 6, 0, 0x39, 0x30, 0,    0,    //
                                                 4,  0, 4, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                                 16, 0, 6, 0, 0xFF, 0xFF, 0xFF, 0xFF, //
                                                 32, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
    constexpr const char* accessList = "system.posix_acl_access";
    put("a.sng", "old");
    const std::string name = folder / "a.sng";
    if (setxattr(name.c_str(), accessList, list.data(), list.size(), 0) != 0)
        GTEST_SKIP() << "no access lists on this file system";
    EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
    std::array<unsigned char, 44> found{};
    EXPECT_EQ(getxattr(name.c_str(), accessList, found.data(), found.size()), 44);
    EXPECT_EQ(found, list);
    EXPECT_EQ(content("a.sng"), "new");
}

TEST_F(FileReplacementTest, FileOfAnotherUserStaysTheirs) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    put("a.sng", "old");
    ASSERT_EQ(chown((folder / "a.sng").c_str(), 12345, 54321), 0);
    EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
    struct stat status {};
    ASSERT_EQ(stat((folder / "a.sng").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 54321U);
}

TEST_F(FileReplacementTest, SharedFileOfAnotherUserIsWrittenInPlace) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    put("a.sng", "a long old content");
    ASSERT_EQ(chmod((folder / "a.sng").c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
    EXPECT_EQ(asOrdinaryUser([this] { return replace("a.sng", "new"); }), WriteError::none);
    struct stat status {};
    ASSERT_EQ(stat((folder / "a.sng").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 0U);
    EXPECT_EQ(content("a.sng"), "new");
    EXPECT_EQ(names(), (std::set<std::string>{"a.sng"}));
}

TEST_F(FileReplacementTest, LinkStaysAndItsFileIsReplaced) {
    fs::create_directory(folder / "songs");
    put("songs/real.sng", "old");
    fs::create_symlink("songs/real.sng", folder / "link.sng");
    fs::create_symlink(folder / "link.sng", folder / "songs/second.sng");
    EXPECT_EQ(replace("songs/second.sng", "new"), WriteError::none);
    EXPECT_TRUE(fs::is_symlink(folder / "link.sng"));
    EXPECT_TRUE(fs::is_symlink(folder / "songs/second.sng"));
    EXPECT_EQ(content("songs/real.sng"), "new");
}

TEST_F(FileReplacementTest, LinkThatLeadsNowhereGetsItsFile) {
    fs::create_symlink("real.sng", folder / "link.sng");
    EXPECT_EQ(replace("link.sng", "new"), WriteError::none);
    EXPECT_TRUE(fs::is_symlink(folder / "link.sng"));
    EXPECT_EQ(content("real.sng"), "new");
}

TEST_F(FileReplacementTest, LinksInACircleAreRefused) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(replace("a", "new"), WriteError::other);
}

TEST_F(FileReplacementTest, ReadOnlyFileIsRefused) {
    put("a.sng", "old");
    ASSERT_EQ(chmod((folder / "a.sng").c_str(), 0444), 0);
    EXPECT_EQ(replace("a.sng", "new"), WriteError::readOnly);
    EXPECT_EQ(content("a.sng"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"a.sng"}));
}

TEST_F(FileReplacementTest, OnlyFilesAreReplaced) {
    fs::create_directory(folder / "folder.sng");
    ASSERT_EQ(mkfifo((folder / "pipe.sng").c_str(), 0600), 0);
    EXPECT_EQ(replace("folder.sng", "new"), WriteError::notAFile);
    EXPECT_EQ(replace("pipe.sng", "new"), WriteError::notAFile);
    EXPECT_EQ(replaceFile("", "new"), WriteError::notAFile);
    EXPECT_EQ(replace("gone/a.sng", "new"), WriteError::folderMissing);
    put("file", "x");
    EXPECT_EQ(replace("file/a.sng", "new"), WriteError::folderMissing);
    EXPECT_EQ(replace(std::string(300, 'a'), "new"), WriteError::nameTooLong);
    EXPECT_EQ(replace(std::string(251, 'a') + ".sng", "new"), WriteError::none)
        << "the longest name that there is";
}

TEST_F(FileReplacementTest, FullDiskKeepsTheOldFileAndLeavesNoPartialOne) {
    put("a.sng", "old");
    const FullDisk disk(10);
    EXPECT_EQ(replace("a.sng", std::string(100, 'x')), WriteError::diskFull);
    EXPECT_EQ(replace("new.sng", std::string(100, 'x')), WriteError::diskFull);
    EXPECT_EQ(content("a.sng"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"a.sng"}));
}

TEST_F(FileReplacementTest, OldTailStaysIfRequested) {
    put("a.mid", "123456789");
    EXPECT_EQ(replace("a.mid", "abc", OldTail::kept), WriteError::none);
    EXPECT_EQ(content("a.mid"), "abc456789");
    EXPECT_EQ(replace("a.mid", "abcdefghijkl", OldTail::kept), WriteError::none);
    EXPECT_EQ(content("a.mid"), "abcdefghijkl");
    EXPECT_EQ(replace("b.mid", "abc", OldTail::kept), WriteError::none);
    EXPECT_EQ(content("b.mid"), "abc");
    const std::string longer(3'000'000, 'y');
    put("c.mid", longer);
    EXPECT_EQ(replace("c.mid", "abc", OldTail::kept), WriteError::none);
    EXPECT_EQ(content("c.mid"), "abc" + longer.substr(3));
}

TEST_F(FileReplacementTest, FullDiskKeepsAFileWithItsTail) {
    put("a.mid", std::string(100, 'y'));
    const FullDisk disk(50);
    EXPECT_EQ(replace("a.mid", "abc", OldTail::kept), WriteError::diskFull);
    EXPECT_EQ(content("a.mid"), std::string(100, 'y'));
    EXPECT_EQ(names(), (std::set<std::string>{"a.mid"}));
}

TEST_F(FileReplacementTest, FileInALockedFolderIsWrittenInPlace) {
    put("a.sng", "a long old content");
    put("b.sng", "short");
    put("c.mid", "123456789");
    lockFolder();
    EXPECT_EQ(asOrdinaryUser([this] { return replace("a.sng", "new"); }), WriteError::none);
    EXPECT_EQ(asOrdinaryUser([this] { return replace("b.sng", "longer than before"); }),
              WriteError::none);
    EXPECT_EQ(asOrdinaryUser([this] { return replace("c.mid", "abc", OldTail::kept); }),
              WriteError::none);
    EXPECT_EQ(content("a.sng"), "new");
    EXPECT_EQ(content("b.sng"), "longer than before");
    EXPECT_EQ(content("c.mid"), "abc456789");
}

TEST_F(FileReplacementTest, FullDiskKeepsAFileInALockedFolder) {
    put("a.sng", "old");
    lockFolder();
    EXPECT_EQ(asOrdinaryUser([this] {
                  const FullDisk disk(10);
                  return replace("a.sng", std::string(100, 'x'));
              }),
              WriteError::diskFull);
    EXPECT_EQ(content("a.sng"), "old");
}

TEST_F(FileReplacementTest, LockedFolderTakesNoNewFile) {
    lockFolder();
    EXPECT_EQ(asOrdinaryUser([this] { return replace("a.sng", "new"); }), WriteError::notAllowed);
    EXPECT_TRUE(names().empty());
}

TEST_F(FileReplacementTest, NextSaveRemovesTheTempFileOfACrash) {
    put(".velorin-1-0.part", "left");
    put(".velorin-1-1.part", "of a process that writes");
    const int writer = open((folder / ".velorin-1-1.part").c_str(), O_RDWR);
    ASSERT_EQ(flock(writer, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(replace("a.sng", "new"), WriteError::none);
    close(writer);
    EXPECT_EQ(names(), (std::set<std::string>{"a.sng", ".velorin-1-1.part"}));
}

} // namespace
} // namespace velorin::host

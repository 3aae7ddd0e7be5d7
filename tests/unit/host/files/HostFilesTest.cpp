// Files of the host: names that differ in case, old tails that stay, folders that are no files.
#include "host/files/HostFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

using velorin::host::HostFiles;
namespace fs = std::filesystem;

namespace {

/// A folder of its own for each test, removed at its end.
class HostFilesTest : public testing::Test {
protected:
    HostFilesTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-files-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~HostFilesTest() override { fs::remove_all(folder); }

    [[nodiscard]] std::string at(const std::string& name) const { return folder + "\\" + name; }

    void put(const std::string& name, const std::string& content) {
        ASSERT_EQ(files.replace(at(name), content), platform::WriteError::none);
    }

    std::string content(const std::string& name) {
        const auto stream = files.openForInput(at(name));
        if (!stream)
            return "no such file";
        return {std::istreambuf_iterator<char>(*stream), {}};
    }

    std::string folder;
    HostFiles files;
};

} // namespace

TEST_F(HostFilesTest, SyncFindsAnExistingFile) {
    put("a.mp3", "sound");
    EXPECT_TRUE(files.sync(at("a.mp3")));
    EXPECT_FALSE(files.sync(at("b.mp3")));
}

TEST_F(HostFilesTest, FileIsFoundUnderANameThatDiffersInCase) {
    put("Mein Lied \xC3\x84.SNG", "x");
    EXPECT_EQ(content("mein lied \xC3\xA4.sng"), "x");
    EXPECT_TRUE(files.canRead(at("MEIN LIED \xC3\x84.sng")));
}

TEST_F(HostFilesTest, WritingUnderAnotherCaseCreatesAnotherFile) {
    put("Song.SNG", "old");
    put("song.sng", "new");
    *files.openForBinary(at("SONG.sng")) << "third";
    EXPECT_EQ(content("Song.SNG"), "old");
    EXPECT_EQ(content("song.sng"), "new");
    EXPECT_EQ(content("SONG.sng"), "third");
}

TEST_F(HostFilesTest, FileWithABackslashInItsNameIsReadAndWritten) {
    const std::string name = folder + "/a\\b.sng";
    std::ofstream(name) << "old";
    EXPECT_TRUE(files.canRead(name));
    EXPECT_EQ(files.replace(name, "new"), platform::WriteError::none);
    std::ifstream stream(name);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(HostFilesTest, ExactNameWinsOverOneThatDiffersInCase) {
    std::ofstream(folder + "/Song.sng") << "capital";
    std::ofstream(folder + "/song.sng") << "small";
    EXPECT_EQ(content("song.sng"), "small");
    EXPECT_EQ(content("Song.sng"), "capital");
}

TEST_F(HostFilesTest, BinaryWritingKeepsTheBytesAfterTheLastOneWritten) {
    put("a.mid", "123456789");
    {
        const auto stream = files.openForBinary(at("a.mid"));
        ASSERT_NE(stream, nullptr);
        *stream << "abc";
    }
    EXPECT_EQ(content("a.mid"), "abc456789");
}

TEST_F(HostFilesTest, BinaryWritingCreatesAMissingFile) {
    *files.openForBinary(at("b.mid")) << "abc";
    EXPECT_EQ(content("b.mid"), "abc");
}

TEST_F(HostFilesTest, FolderIsNoFile) {
    EXPECT_TRUE(files.createFolder(at("songs")));
    EXPECT_FALSE(files.createFolder(at("songs"))) << "it is there already";
    EXPECT_FALSE(files.canRead(at("songs")));
    EXPECT_EQ(files.openForBinary(at("songs")), nullptr);
    EXPECT_FALSE(files.remove(at("songs")));
    EXPECT_TRUE(fs::exists(folder + "/songs"));
}

TEST_F(HostFilesTest, MissingFileCanNeitherBeReadNorRemoved) {
    EXPECT_FALSE(files.canRead(at("a")));
    EXPECT_FALSE(files.canRead(""));
    EXPECT_FALSE(files.remove(at("a")));
}

TEST_F(HostFilesTest, WriteProtectedFileIsNotRemoved) {
    put("a", "kept");
    fs::permissions(folder + "/a", fs::perms::owner_read);
    EXPECT_FALSE(files.remove(at("a")));
    EXPECT_EQ(content("a"), "kept");
}

TEST_F(HostFilesTest, FileWrittenIncrementallyLogsThatItIsNotWhole) {
    testing::internal::CaptureStderr();
    {
        const auto stream = files.openForUpdate("/dev/full");
        if (!stream)
            GTEST_SKIP() << "no such device here";
        stream->write("piece", 5);
        EXPECT_FALSE(stream->flush());
        stream->write("piece", 5);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velorin: /dev/full could not be written whole; is the disk full?\n");
}

TEST_F(HostFilesTest, VirtualFileIsNotRead) {
    EXPECT_EQ(files.openForInput("/proc/self/status"), nullptr);
    EXPECT_FALSE(files.canRead("/proc/version"));
}

TEST_F(HostFilesTest, ReplaceUsesTheExactName) {
    put("Song.sng", "other");
    EXPECT_EQ(files.replace(at("song.sng"), "new"), platform::WriteError::none);
    EXPECT_EQ(files.replace(at("song.sng"), "newer"), platform::WriteError::none);
    EXPECT_EQ(content("song.sng"), "newer");
    EXPECT_EQ(content("Song.sng"), "other");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(HostFilesTest, OverwrittenFileKeepsTheBytesAfterTheLastNewOne) {
    put("a.mid", "123456789");
    EXPECT_EQ(files.overwrite(at("a.mid"), "abc"), platform::WriteError::none);
    EXPECT_EQ(content("a.mid"), "abc456789");
}

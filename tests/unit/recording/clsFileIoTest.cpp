// Blocks of bytes in a file.
#include "recording/clsFileIo.h"

#include "RecordingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

class FileIo : public testing::Test, protected RecordingStage {
protected:
    clsFileIo file{host.platform};
};

TEST_F(FileIo, MakesAFileThatIsNotThere) {
    EXPECT_EQ(file.OpenFile(inFolder("new.mp3")), flagSet);
    EXPECT_EQ(file.WriteBytes("abc", 3), flagSet);
    EXPECT_EQ(file.transferred(), 3U);
    EXPECT_EQ(file.CloseFile(), flagSet);
    EXPECT_EQ(read("new.mp3"), "abc");
}

TEST_F(FileIo, KeepsWhatAFileHoldsBeyondWhatIsWritten) {
    const std::string name = write("old.mp3", "123456");
    EXPECT_TRUE(file.OpenFile(name).isSet());
    EXPECT_TRUE(file.WriteBytes("ab", 2).isSet());
    EXPECT_TRUE(file.CloseFile().isSet());
    EXPECT_EQ(read("old.mp3"), "ab3456");
}

TEST_F(FileIo, HasEveryBlockInTheFileAtOnce) {
    EXPECT_TRUE(file.OpenFile(inFolder("a.mp3")).isSet());
    EXPECT_TRUE(file.WriteBytes("ab", 2).isSet());
    EXPECT_EQ(read("a.mp3"), "ab");
    EXPECT_TRUE(file.WriteBytes("cd", 2).isSet());
    EXPECT_EQ(read("a.mp3"), "abcd");
}

TEST_F(FileIo, ReadsShortAtTheEndAndLeavesTheRestOfTheBuffer) {
    EXPECT_TRUE(file.OpenFile(write("a.wav", "abcde")).isSet());
    std::string buffer = "------";
    EXPECT_EQ(file.ReadBytes(buffer.data(), 4), flagSet);
    EXPECT_EQ(buffer, "abcd--");
    EXPECT_EQ(file.ReadBytes(buffer.data(), 4), flagSet);
    EXPECT_EQ(file.transferred(), 1U);
    EXPECT_EQ(buffer, "ebcd--");
}

TEST_F(FileIo, DoesNothingWithoutAFile) {
    std::string buffer = "--";
    EXPECT_EQ(file.WriteBytes("ab", 2), flagClear);
    EXPECT_EQ(file.ReadBytes(buffer.data(), 2), flagClear);
    EXPECT_EQ(file.FlushBuffers(), flagClear);
    EXPECT_EQ(file.CloseFile(), flagClear);
    EXPECT_EQ(buffer, "--");
}

TEST_F(FileIo, ReportsAFileThatCannotBeOpened) {
    host.files.makeReadOnly(inFolder("locked.mp3"));
    EXPECT_EQ(file.OpenFile(inFolder("locked.mp3")), flagClear);
    EXPECT_EQ(file.name(), inFolder("locked.mp3"));
}

TEST_F(FileIo, WritesTheHeaderOfASecondOfStereo) {
    EXPECT_TRUE(file.OpenFile(inFolder("a.wav")).isSet());
    EXPECT_EQ(file.writeWavHeader(176400), flagSet); // 2B110 hex; with 36 more 2B134
    const std::string expected("RIFF\x34\xB1\x02\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x02\x00"
                               "\x44\xAC\x00\x00\x10\xB1\x02\x00\x04\x00\x10\x00"
                               "data\x10\xB1\x02\x00",
                               44);
    EXPECT_EQ(read("a.wav"), expected);
}

} // namespace
} // namespace velorin

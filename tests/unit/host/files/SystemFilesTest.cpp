// INI files and short names of files.
#include "host/files/HostSystemFiles.h"
#include "host/files/IniFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;

class SystemFiles : public testing::Test {
protected:
    SystemFiles() { fs::create_directories(folder); }
    ~SystemFiles() override { fs::remove_all(folder); }

    fs::path folder =
        fs::temp_directory_path() / ("velorin system files " + std::to_string(::getpid()));
    HostSystemFiles files{folder};
};

TEST(AnIniFile, FindsAKeyWhateverItsCase) {
    const std::string text = "; comment\r\n[fonts]\r\na=1\r\n[Mci]\r\n MPEGVideo = mciqtz.drv \r\n";
    EXPECT_EQ(iniValue(text, "MCI", "mpegvideo"), "mciqtz.drv");
    EXPECT_EQ(iniValue(text, "fonts", "mpegvideo"), std::nullopt);
    EXPECT_EQ(iniValue(text, "none", "a"), std::nullopt);
}

TEST(AnIniFile, KeepsEverythingElseWhenAKeyIsSet) {
    EXPECT_EQ(withIniValue("", "MCI", "a", "1"), "[MCI]\r\na=1\r\n");
    EXPECT_EQ(withIniValue("[mci]\r\nb=2\r\n[x]\r\na=3\r\n", "MCI", "a", "1"),
              "[mci]\r\nb=2\r\na=1\r\n[x]\r\na=3\r\n");
    EXPECT_EQ(withIniValue("[mci]\r\nA=2\r\n;end\r\n", "MCI", "a", "1"),
              "[mci]\r\na=1\r\n;end\r\n");
}

TEST_F(SystemFiles, ShareAKeyBetweenPrograms) {
    const std::string file = files.GetWindowsDirectoryA() + "\\system.ini";
    EXPECT_EQ(files.GetPrivateProfileStringA("MCI", "MPEGVideo", "None", file), "None");
    EXPECT_TRUE(files.WritePrivateProfileStringA("MCI", "MPEGVideo", "mciqtz.drv", file));
    HostSystemFiles again(folder);
    EXPECT_EQ(again.GetPrivateProfileStringA("mci", "mpegvideo", "None", file), "mciqtz.drv");
}

TEST_F(SystemFiles, LeaveAloneAFileThatCannotBeWrittenOrRead) {
    const std::string file = (folder / "system.ini").string();
    std::ofstream(file) << "[a]\r\nb=1\r\n";
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_FALSE(files.WritePrivateProfileStringA("MCI", "MPEGVideo", "x", file));
    EXPECT_EQ(files.GetPrivateProfileStringA("a", "b", "", file), "1");
    fs::create_directory(folder / "folder.ini");
    EXPECT_FALSE(
        files.WritePrivateProfileStringA("MCI", "a", "x", (folder / "folder.ini").string()));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2) << "no remainder";
}

TEST_F(SystemFiles, GiveAShortNameWithoutBlanksThatCanBeReversed) {
    const std::string name = (folder / "100% of \xC3\x9C"
                                       "bung 1.mp3")
                                 .string();
    std::ofstream(name) << "x";
    const std::string shortName = files.GetShortPathNameA(name);
    EXPECT_EQ(shortName.find(' '), std::string::npos);
    EXPECT_EQ(pathOfShortName(shortName), name);
    EXPECT_EQ(pathOfShortName("/a%41%"), "/a%41%");
}

TEST_F(SystemFiles, LeaveTheNameOfAMissingFileAsItIs) {
    EXPECT_EQ(files.GetShortPathNameA("/no such/file here.mp3"), "/no such/file here.mp3");
}

} // namespace
} // namespace velorin::host

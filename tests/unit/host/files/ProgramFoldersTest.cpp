// Where the songs are: beside a program that was unpacked, in the user's folder if it was
// installed.
#include "host/files/ProgramFolders.h"
#include "host/files/UserFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

using namespace velorin::host;
namespace fs = std::filesystem;

namespace {

class ProgramFoldersTest : public testing::Test {
protected:
    ProgramFoldersTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-folders-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        programs = folder / "usr" / "bin";
        shared = folder / "usr" / "share" / "velorin";
        users = folder / "home" / "velorin";
        songs = users / "Songs";
        fs::create_directories(programs);
    }
    ~ProgramFoldersTest() override { fs::remove_all(folder); }

    void install() const {
        fs::create_directories(shared / "songs");
        write(shared / "songs" / "a.sng", "installed a");
        write(shared / "songs" / "b.sng", "installed b");
    }

    static void write(const fs::path& file, const std::string& text) {
        std::ofstream(file, std::ios::binary) << text;
    }

    static std::string textOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    fs::path folder;
    fs::path programs;
    fs::path shared;
    fs::path users;
    fs::path songs;
};

} // namespace

TEST_F(ProgramFoldersTest, SongsOfAnUnpackedProgramAreBesideIt) {
    EXPECT_EQ(installedFolder(programs), "");
    EXPECT_EQ(workFolder(programs, users), programs);
    EXPECT_FALSE(fs::exists(users));
}

TEST_F(ProgramFoldersTest, SongsOfAnInstalledProgramAreInTheUsersFolderEvenForAnAdministrator) {
    install();
    EXPECT_EQ(installedFolder(programs), shared);
    EXPECT_EQ(workFolder(programs, users), users);
    EXPECT_TRUE(fs::is_directory(users));
}

TEST_F(ProgramFoldersTest, SongsGoToTheUsersFolderIfTheProgramsIsNotWritable) {
    EXPECT_EQ(workFolder(folder / "no such folder", users), users);
}

TEST_F(ProgramFoldersTest, WithoutAHomeSongsAreBesideTheProgram) {
    install();
    EXPECT_EQ(workFolder(programs, ""), programs);
}

TEST_F(ProgramFoldersTest, TheUsersFoldersFollowTheEnvironment) {
    EXPECT_EQ(dataFolder("/data", "/home/ada"), "/data/velorin");
    EXPECT_EQ(dataFolder("data", "/home/ada"), "/home/ada/.local/share/velorin");
    EXPECT_EQ(dataFolder("", "/home/ada"), "/home/ada/.local/share/velorin");
    EXPECT_EQ(dataFolder(nullptr, "/home/ada"), "/home/ada/.local/share/velorin");
    EXPECT_EQ(dataFolder(nullptr, nullptr), "");
    EXPECT_EQ(stateFolder("/x/state", "/home/anna"), "/x/state/velorin");
    EXPECT_EQ(stateFolder("relative", "/home/anna"), "/home/anna/.local/state/velorin");
    EXPECT_EQ(stateFolder(nullptr, "/home/anna"), "/home/anna/.local/state/velorin");
    EXPECT_EQ(stateFolder("", nullptr), "");
}

TEST_F(ProgramFoldersTest, TheFirstStartCopiesTheInstalledSongsForTheUser) {
    install();
    fs::permissions(shared / "songs" / "a.sng", fs::perms::owner_read);
    fs::create_directories(users);
    copyInstalledSongs(shared, songs);
    EXPECT_EQ(textOf(songs / "a.sng"), "installed a");
    EXPECT_EQ(textOf(songs / "b.sng"), "installed b");
    EXPECT_NE(fs::status(songs / "a.sng").permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(std::distance(fs::directory_iterator(users), {}), 1);
}

TEST_F(ProgramFoldersTest, ASongThatTheUserDeletedOrChangedStaysThatWay) {
    install();
    fs::create_directories(songs);
    write(songs / "a.sng", "mine");
    copyInstalledSongs(shared, songs);
    EXPECT_EQ(textOf(songs / "a.sng"), "mine");
    EXPECT_FALSE(fs::exists(songs / "b.sng"));
}

TEST_F(ProgramFoldersTest, WithoutAnInstallationNoSongsAreCopied) {
    fs::create_directories(users);
    copyInstalledSongs("", songs);
    EXPECT_FALSE(fs::exists(songs));
}

TEST_F(ProgramFoldersTest, AMissingFolderOfTheUserIsSkipped) {
    install();
    copyInstalledSongs(shared, songs);
    EXPECT_FALSE(fs::exists(users));
}

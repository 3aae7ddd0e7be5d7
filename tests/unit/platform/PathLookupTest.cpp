// Finding files by names whose case differs.
#include "platform/PathLookup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

using platform::resolve;
using platform::resolveForWriting;
namespace fs = std::filesystem;

namespace {

class PathLookupTest : public testing::Test {
protected:
    PathLookupTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-case-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~PathLookupTest() override { fs::remove_all(folder); }

    void make(const std::string& name) const {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << "x";
    }
    [[nodiscard]] fs::path found(const std::string& name) const {
        return resolve(folder.string() + "\\" + name).lexically_relative(folder);
    }

    [[nodiscard]] fs::path toWrite(const std::string& name) const {
        return resolveForWriting(folder.string() + "\\" + name).lexically_relative(folder);
    }

    fs::path folder;
};

} // namespace

TEST_F(PathLookupTest, BackslashSeparates) {
    make("Songs/a.sng");
    EXPECT_EQ(found("Songs\\a.sng"), "Songs/a.sng");
}

TEST_F(PathLookupTest, EveryPartOfThePathMayDifferInCase) {
    make("Meine Lieder/\xC3\x9C"
         "bung.SNG");
    EXPECT_EQ(found("meine lieder\\\xC3\xBC"
                    "bung.sng"),
              "Meine Lieder/\xC3\x9C"
              "bung.SNG");
}

TEST_F(PathLookupTest, ExactNameWins) {
    make("A.sng");
    make("a.sng");
    EXPECT_EQ(found("a.sng"), "a.sng");
    EXPECT_EQ(found("A.sng"), "A.sng");
}

TEST_F(PathLookupTest, OfSeveralMatchesTheFirstInByteOrderIsTaken) {
    make("aB.sng");
    make("Ab.sng");
    EXPECT_EQ(found("ab.sng"), "Ab.sng");
}

TEST_F(PathLookupTest, MissingFileKeepsItsNameInTheFolderThatIsFound) {
    make("Songs/a.sng");
    EXPECT_EQ(found("songs\\New.sng"), "Songs/New.sng");
    EXPECT_EQ(found("other\\New.sng"), "other/New.sng");
}

TEST_F(PathLookupTest, EmptyNameStaysEmpty) {
    EXPECT_EQ(resolve(""), fs::path());
}

TEST_F(PathLookupTest, NameWithABackslashIsFoundBeforeTheBackslashSeparates) {
    make("Songs/a\\b.sng");
    EXPECT_EQ(resolve((folder / "Songs/a\\b.sng").string()), folder / "Songs/a\\b.sng");
    EXPECT_EQ(found("songs\\a\\b.sng"), "Songs/a/b.sng") << "no such folder, and no such file";
    make("Songs/a/b.sng");
    EXPECT_EQ(resolve((folder / "Songs/a\\b.sng").string()), folder / "Songs/a\\b.sng");
    EXPECT_EQ(found("songs\\a\\b.sng"), "Songs/a/b.sng");
}

TEST_F(PathLookupTest, FolderNameMayContainABackslash) {
    make("my\\songs/A.sng");
    EXPECT_EQ(resolve((folder / "my\\songs/a.sng").string()), folder / "my\\songs/A.sng");
    EXPECT_EQ(resolveForWriting((folder / "my\\songs/new.sng").string()),
              folder / "my\\songs/new.sng");
}

TEST_F(PathLookupTest, NameToBeWrittenIsExactInAFolderThatIsFound) {
    make("Songs/Song.sng");
    EXPECT_EQ(toWrite("songs\\song.sng"), "Songs/song.sng");
    EXPECT_EQ(toWrite("SONGS\\Song.sng"), "Songs/Song.sng");
    EXPECT_EQ(toWrite("other\\Song.sng"), "other/Song.sng");
    EXPECT_EQ(resolveForWriting(""), fs::path());
    EXPECT_EQ(resolveForWriting("new.sng"), "new.sng");
    EXPECT_EQ(resolveForWriting("\\new.sng"), "/new.sng");
}

TEST_F(PathLookupTest, ExistingFileWithABackslashInItsNameIsWritten) {
    make("a\\b.sng");
    EXPECT_EQ(resolveForWriting((folder / "a\\b.sng").string()), folder / "a\\b.sng");
    make("c/x.sng");
    EXPECT_EQ(toWrite("c\\d.sng"), "c/d.sng");
}

TEST(AShownPath, HasOneKindOfSeparator) {
    EXPECT_EQ(platform::shownPath("\\media\\104.sng"), "/media/104.sng");
}

// Finding files by names whose case differs.
#include "platform/CaseBlind.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

using platform::resolve;
namespace fs = std::filesystem;

namespace {

class CaseBlindTest : public testing::Test {
protected:
    CaseBlindTest() {
        std::string pattern = (fs::temp_directory_path() / "velorin-case-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~CaseBlindTest() override { fs::remove_all(folder); }

    void make(const std::string& name) const {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << "x";
    }
    [[nodiscard]] fs::path found(const std::string& name) const {
        return resolve(folder.string() + "\\" + name).lexically_relative(folder);
    }

    fs::path folder;
};

} // namespace

TEST_F(CaseBlindTest, BackslashSeparates) {
    make("Songs/a.sng");
    EXPECT_EQ(found("Songs\\a.sng"), "Songs/a.sng");
}

TEST_F(CaseBlindTest, EveryPartOfThePathMayDifferInCase) {
    make("Meine Lieder/\xC3\x9C"
         "bung.SNG");
    EXPECT_EQ(found("meine lieder\\\xC3\xBC"
                    "bung.sng"),
              "Meine Lieder/\xC3\x9C"
              "bung.SNG");
}

TEST_F(CaseBlindTest, ExactNameWins) {
    make("A.sng");
    make("a.sng");
    EXPECT_EQ(found("a.sng"), "a.sng");
    EXPECT_EQ(found("A.sng"), "A.sng");
}

TEST_F(CaseBlindTest, OfSeveralTheFirstInByteOrderIsTaken) {
    make("aB.sng");
    make("Ab.sng");
    EXPECT_EQ(found("ab.sng"), "Ab.sng");
}

TEST_F(CaseBlindTest, FileYetToBeMadeKeepsItsNameInTheFolderThatIsFound) {
    make("Songs/a.sng");
    EXPECT_EQ(found("songs\\New.sng"), "Songs/New.sng");
    EXPECT_EQ(found("other\\New.sng"), "other/New.sng");
}

TEST_F(CaseBlindTest, EmptyNameStaysEmpty) {
    EXPECT_EQ(resolve(""), fs::path());
}

// Files that appear whole: their names, and what is left of them.
#include "convert/WholeFile.h"
#include "../host/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

class AWholeFile : public testing::Test {
protected:
    [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(at(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    [[nodiscard]] std::vector<std::string> namesThere() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    scripted::TemporaryFolder folder_;
};

// 255 bytes are the longest that a name can be.
TEST_F(AWholeFile, MayHaveAnyNameThatTheSystemAllows) {
    for (const std::string& name : {std::string(251, 'x') + ".wav", std::string("a\\b.wav")}) {
        EXPECT_EQ(writeWhole(at(name), "whole"), "") << name;
        EXPECT_EQ(read(name), "whole") << name;
    }
    EXPECT_EQ(namesThere().size(), 2U);
}

TEST_F(AWholeFile, TakesThePlaceOfAnOlderOneAtItsEnd) {
    std::ofstream(at("a.wav")) << "older";
    {
        WholeFile file(at("a.wav"));
        ASSERT_EQ(file.begin(), "");
        ASSERT_EQ(file.write("new"), "");
        EXPECT_EQ(read("a.wav"), "older");
        EXPECT_EQ(file.finish(), "");
        EXPECT_EQ(read("a.wav"), "new");
    }
    EXPECT_THAT(namesThere(), testing::ElementsAre("a.wav"));
}

TEST_F(AWholeFile, ThatIsNotFinishedLeavesNothing) {
    {
        WholeFile file(at("a.wav"));
        ASSERT_EQ(file.begin(), "");
        ASSERT_EQ(file.write("half"), "");
        EXPECT_EQ(namesThere().size(), 1U);
    }
    EXPECT_THAT(namesThere(), testing::IsEmpty());
}

TEST_F(AWholeFile, SaysInTheSystemsWordsWhyItCannotBeWritten) {
    EXPECT_EQ(writeWhole(at("nowhere/a.wav"), "whole"),
              "cannot be written: No such file or directory");
    const host::test::FullDisk disk(3);
    EXPECT_EQ(writeWhole(at("a.wav"), "whole"), "cannot be written: File too large");
    EXPECT_THAT(namesThere(), testing::IsEmpty());
}

TEST_F(AWholeFile, KeepsALinkAndReplacesWhatItLeadsTo) {
    fs::create_directory(at("music"));
    std::ofstream(at("music/a.wav")) << "older";
    fs::create_symlink("music/a.wav", at("link.wav"));
    EXPECT_EQ(folderOf(at("link.wav")), fs::canonical(at("music")));
    ASSERT_EQ(writeWhole(at("link.wav"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(at("link.wav")));
    EXPECT_EQ(read("music/a.wav"), "new");
}

TEST_F(AWholeFile, MayBeTheFirstInFoldersThatAreMadeForIt) {
    makeFolders(at("a/b/c"));
    EXPECT_EQ(writeWhole(at("a/b/c/d.wav"), "whole"), "");
    makeFolders(at("a/b/c"));
    makeFolders("");
    EXPECT_EQ(read("a/b/c/d.wav"), "whole");
}

} // namespace
} // namespace velorin::convert

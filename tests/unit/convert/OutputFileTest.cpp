// Files that appear only when they are complete.
#include "convert/OutputFile.h"
#include "support/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

class AnOutputFile : public testing::Test {
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

// A name has at most 255 bytes.
TEST_F(AnOutputFile, MayHaveAnyNameThatTheSystemAllows) {
    for (const std::string& name : {std::string(251, 'x') + ".wav", std::string("a\\b.wav")}) {
        EXPECT_EQ(writeOutput(at(name), "whole").reason(), "") << name;
        EXPECT_EQ(read(name), "whole") << name;
    }
    EXPECT_EQ(namesThere().size(), 2U);
}

TEST_F(AnOutputFile, WithANameThatIsTooLongFailsBeforeItIsWritten) {
    OutputFile file(at(std::string(252, 'x') + ".wav"));
    EXPECT_EQ(file.begin().reason(), "cannot be written: File name too long");
    EXPECT_TRUE(namesThere().empty());
}

TEST_F(AnOutputFile, LeavesAnOlderOneAloneIfItShallBeKept) {
    EXPECT_EQ(writeOutput(at("a.wav"), "older", Existing::kept).reason(), "");
    EXPECT_EQ(writeOutput(at("a.wav"), "new", Existing::kept).reason(),
              "cannot be put in place: File exists");
    EXPECT_EQ(read("a.wav"), "older");
    EXPECT_THAT(namesThere(), testing::ElementsAre("a.wav"));
}

TEST_F(AnOutputFile, ReplacesAnOlderOneWhenItIsFinished) {
    std::ofstream(at("a.wav")) << "older";
    {
        OutputFile file(at("a.wav"));
        ASSERT_EQ(file.begin().reason(), "");
        ASSERT_EQ(file.write("new").reason(), "");
        EXPECT_EQ(read("a.wav"), "older");
        EXPECT_EQ(file.finish().reason(), "");
        EXPECT_EQ(read("a.wav"), "new");
    }
    EXPECT_THAT(namesThere(), testing::ElementsAre("a.wav"));
}

TEST_F(AnOutputFile, ThatIsNotFinishedLeavesNoFiles) {
    {
        OutputFile file(at("a.wav"));
        ASSERT_EQ(file.begin().reason(), "");
        ASSERT_EQ(file.write("half").reason(), "");
        EXPECT_EQ(namesThere().size(), 1U);
    }
    EXPECT_THAT(namesThere(), testing::IsEmpty());
}

TEST_F(AnOutputFile, ReportsTheErrorOfTheSystem) {
    EXPECT_EQ(writeOutput(at("nowhere/a.wav"), "whole").reason(),
              "cannot be written: No such file or directory");
    const host::test::FullDisk disk(3);
    EXPECT_EQ(writeOutput(at("a.wav"), "whole").reason(), "cannot be written: File too large");
    EXPECT_THAT(namesThere(), testing::IsEmpty());
}

TEST_F(AnOutputFile, KeepsALinkAndReplacesItsTarget) {
    fs::create_directory(at("music"));
    std::ofstream(at("music/a.wav")) << "older";
    fs::create_symlink("music/a.wav", at("link.wav"));
    EXPECT_EQ(folderOf(at("link.wav")), fs::canonical(at("music")));
    ASSERT_EQ(writeOutput(at("link.wav"), "new").reason(), "");
    EXPECT_TRUE(fs::is_symlink(at("link.wav")));
    EXPECT_EQ(read("music/a.wav"), "new");
}

TEST_F(AnOutputFile, MayCreateItsFolders) {
    makeFolders(at("a/b/c"));
    EXPECT_EQ(writeOutput(at("a/b/c/d.wav"), "whole").reason(), "");
    makeFolders(at("a/b/c"));
    makeFolders("");
    EXPECT_EQ(read("a/b/c/d.wav"), "whole");
}

} // namespace
} // namespace velorin::convert

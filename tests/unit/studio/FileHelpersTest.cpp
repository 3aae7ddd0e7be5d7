// The file operations that many commands share, and the wait after a deletion.
#include "studio/FileHelpers.h"

#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace velorin;

namespace {

class FileHelpersTest : public testing::Test {
protected:
    [[nodiscard]] std::string at(const std::string& name) const {
        return (host.folder.path() / name).string();
    }

    scripted::ScriptedPlatform host;
};

constexpr scripted::Nanoseconds millisecond = 1'000'000;

} // namespace

TEST_F(FileHelpersTest, FileExistsIfItCanBeReadWhateverItsCase) {
    std::ofstream(at("A.sng")) << "x";
    EXPECT_TRUE(FileExists(host.platform, at("a.SNG")));
    EXPECT_FALSE(FileExists(host.platform, at("b.sng")));
    EXPECT_FALSE(FileExists(host.platform, host.folder.path().string())) << "a folder is no file";
}

TEST_F(FileHelpersTest, DestroyedFileIsGoneBeforeTheWait) {
    std::ofstream(at("a.sng")) << "x";
    bool gone = false;
    host.time.plan(50 * millisecond, [&] { gone = !std::filesystem::exists(at("a.sng")); });
    p_DestroyFile(host.platform, at("a.sng"));
    EXPECT_TRUE(gone);
    EXPECT_EQ(host.time.now(), 200 * millisecond);
}

TEST_F(FileHelpersTest, FileIsDestroyedUnderANameThatDiffersInCase) {
    std::ofstream(at("Tune.wav")) << "x";
    p_DestroyFile(host.platform, at("tune.wav"));
    EXPECT_FALSE(std::filesystem::exists(at("Tune.wav")));
    EXPECT_FALSE(std::filesystem::exists(at("tune.wav")));
}

TEST_F(FileHelpersTest, DestroyingAMissingFileWaitsToo) {
    p_DestroyFile(host.platform, at("a.sng"));
    EXPECT_FALSE(std::filesystem::exists(at("a.sng")));
    EXPECT_EQ(host.time.now(), 200 * millisecond);
}

TEST_F(FileHelpersTest, WaitGoesOnAfterTheEventsInIt) {
    int events = 0;
    for (const int at : {10, 20, 30})
        host.time.plan(at * millisecond, [&events] { ++events; });
    yieldFor(host.platform, 100);
    EXPECT_EQ(events, 3);
    EXPECT_EQ(host.time.now(), 100 * millisecond);
}

TEST_F(FileHelpersTest, WaitEndsWithTheProgram) {
    host.time.plan(30 * millisecond, [this] { host.time.end(); });
    yieldFor(host.platform, 100);
    EXPECT_EQ(host.time.now(), 30 * millisecond);
}

// Tests of the test tool: it finds unsafe writers, accepts safe ones, and misses no call of the
// libraries.
#include "DiskStage.h"
#include "host/disk/DurableFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <fstream>

namespace velorin::disk {
namespace {

namespace fs = std::filesystem;

const std::string older = "the older song";
const std::string newer = "the newer song, which is longer";

const Promise overOlder{"a.sng", older, newer};
const Promise asNew{"a.sng", {}, newer};

Judge promiseOf(const Promise& promise) {
    return [promise](const DiskState& state) { return broken(state, promise); };
}

class APowerCut : public testing::Test {
protected:
    [[nodiscard]] DiskLog recordedFrom(const std::function<void()>& writer) const {
        return recorded(stage.path(), [&writer](DiskRecorder& recorder) {
            writer();
            recorder.mark(saved);
        });
    }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(stage.at(name), std::ios::binary | std::ios::trunc) << content;
    }

    DiskStage stage;
};

TEST_F(APowerCut, LosesBothSongsOfAWriterThatTruncatesAndWritesInPlace) {
    stage.put("a.sng", older);
    const auto log = recordedFrom([this] {
        write("a.sng", newer);
        EXPECT_TRUE(host::syncFile(stage.path() / "a.sng"));
    });
    const Survey found = survey(log, promiseOf(overOlder));
    EXPECT_GT(found.badStates, 2U);
    EXPECT_THAT(found.faults, testing::Each(testing::HasSubstr("neither the old nor the new")));
}

TEST_F(APowerCut, LosesBothSongsOfAWriterThatRenamesWithoutASync) {
    stage.put("a.sng", older);
    const auto log = recordedFrom([this] {
        write(".a.part", newer);
        fs::rename(stage.path() / ".a.part", stage.path() / "a.sng");
        EXPECT_TRUE(host::syncFolder(stage.path()));
    });
    EXPECT_GT(survey(log, promiseOf(overOlder)).badStates, 0U);
}

TEST_F(APowerCut, BreaksThePromiseOfAWriterThatDoesNotSyncTheFolder) {
    const auto log = recordedFrom([this] {
        write(".a.part", newer);
        EXPECT_TRUE(host::syncFile(stage.path() / ".a.part"));
        fs::rename(stage.path() / ".a.part", stage.path() / "a.sng");
    });
    const Survey found = survey(log, promiseOf(asNew));
    EXPECT_GT(found.badStates, 0U);
    EXPECT_THAT(found.faults.front(), testing::HasSubstr("which the program said it was"));
}

TEST_F(APowerCut, LosesTheOldSongOfAWriterThatRemovesItFirst) {
    stage.put("a.sng", older);
    const auto log = recordedFrom([this] {
        fs::remove(stage.path() / "a.sng");
        write(".a.part", newer);
        EXPECT_TRUE(host::syncFile(stage.path() / ".a.part"));
        fs::rename(stage.path() / ".a.part", stage.path() / "a.sng");
        EXPECT_TRUE(host::syncFolder(stage.path()));
    });
    const Survey found = survey(log, promiseOf(overOlder));
    EXPECT_GT(found.badStates, 0U);
    EXPECT_THAT(found.faults.front(), testing::HasSubstr("gone"));
}

TEST_F(APowerCut, LosesNothingOfAWriterThatUsesATempFileAndSyncs) {
    stage.put("a.sng", older);
    const auto log = recordedFrom([this] {
        write(".a.part", newer);
        EXPECT_FALSE(host::replaceDurably(stage.path() / ".a.part", stage.path() / "a.sng"));
    });
    // .part: absent; empty; half; zeros; whole. Then the new song, beside nothing.
    const Survey found = survey(log, promiseOf(overOlder));
    EXPECT_EQ(found.states, 6U);
    EXPECT_EQ(found.badStates, 0U) << found.faults.front();
}

TEST_F(APowerCut, LeavesNoFilesOfALostFolder) {
    const auto log = recordedFrom([this] {
        fs::create_directory(stage.path() / "Songs");
        write("Songs/a.sng", newer);
        EXPECT_TRUE(host::syncFile(stage.path() / "Songs/a.sng"));
        EXPECT_TRUE(host::syncFolder(stage.path() / "Songs"));
    });
    const Promise promise{"Songs/a.sng", {}, newer};
    EXPECT_GT(survey(log, promiseOf(promise)).badStates, 0U) << "the folder itself was not synced";
}

TEST_F(APowerCut, MayReorderWrites) {
    const auto log = recordedFrom([this] {
        const int number = open(stage.at("a").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        EXPECT_EQ(::write(number, "12", 2), 2);
        EXPECT_EQ(pwrite(number, "34", 2, 2), 2);
        close(number);
    });
    std::set<std::string> contents;
    const auto found = survey(log, [&contents](const DiskState& state) {
        for (const auto& [name, content] : state.files)
            contents.insert(content);
        return std::string();
    });
    using namespace std::string_literals;
    EXPECT_THAT(contents, testing::UnorderedElementsAre("", "1", "\0\0"s, "12", "123", "1234",
                                                        "\0\0\0\0"s, "12\0\0"s, "\0\0"s + "34"));
    EXPECT_EQ(found.states, contents.size() + 1) << "and no file at all";
}

// A change by a call that is not recorded shows as a difference.
TEST_F(APowerCut, CannotBeCheckedIfTheRecorderMissesACall) {
    DiskRecorder recorder(stage.path());
    write("a", "seen");
    const std::string command = "printf unseen > '" + stage.at("a") + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_THAT(recorder.finish().missed, testing::Contains(testing::HasSubstr("unseen")));
}

} // namespace
} // namespace velorin::disk

// A power cut while a score is saved or exported.
#include "../studio/Recorders.h"
#include "DiskStage.h"
#include "RealFiles.h"
#include "host/state/HostHistoryStore.h"
#include "model/ScoreWriter.h"
#include "studio/ScoreFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace velorin::disk {
namespace {

class AScoreOnTheDisk : public testing::Test {
protected:
    AScoreOnTheDisk() {
        studio.desk = &desk;
        for (int column = 0; column < 40; ++column)
            studio.score.NoteArray.write(0, column, static_cast<std::int16_t>(40 + column));
    }

    /// The expected content is the final content of the file.
    [[nodiscard]] Promise promiseOf(const std::string& name,
                                    std::optional<std::string> before) const {
        return {name, std::move(before), stage.content(name)};
    }
    void expectPromiseKept(const std::string& writer, const DiskLog& log,
                           const Promise& promise) const {
        expectNoBadState(writer, log, [&promise](const DiskState& state) {
            return firstOf({broken(state, promise), strangers(state, {promise.name})});
        });
        EXPECT_EQ(stage.names(), std::vector<std::string>{promise.name}) << "nothing is left over";
    }

    DiskStage stage;
    RealFiles real;
    test::Log told;
    Studio studio{real.platform};
    test::RecordingDesk desk{told};
    ScoreFiles files{studio};
};

TEST_F(AScoreOnTheDisk, SavedUnderANewNameIsThereWholeOrNotAtAll) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        files.SaveScoreFile(stage.at("song.sng"));
        recorder.mark(saved);
    });
    EXPECT_EQ(stage.content("song.sng"), scoreText(studio.score));
    expectPromiseKept("a score under a new name", log, promiseOf("song.sng", {}));
}

TEST_F(AScoreOnTheDisk, SavedOverAnOlderOneIsTheOlderOrTheNewerOne) {
    files.SaveScoreFile(stage.at("song.sng"));
    const std::string older = stage.content("song.sng");
    studio.score.NoteArray.write(3, 100, 60);
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        files.SaveScoreFile(stage.at("song.sng"));
        recorder.mark(saved);
    });
    EXPECT_NE(stage.content("song.sng"), older);
    expectPromiseKept("a score over an older one", log, promiseOf("song.sng", older));
}

TEST_F(AScoreOnTheDisk, SavedTwiceIsNeverOlderThanTheFirstTime) {
    files.SaveScoreFile(stage.at("song.sng"));
    const std::string older = stage.content("song.sng");
    std::string between;
    const auto log = recorded(stage.path(), [&](DiskRecorder& recorder) {
        studio.score.NoteArray.write(3, 100, 60);
        files.SaveScoreFile(stage.at("song.sng"));
        recorder.mark("saved once");
        between = scoreText(studio.score);
        studio.score.NoteArray.write(4, 200, 60);
        files.SaveScoreFile(stage.at("song.sng"));
        recorder.mark(saved);
    });
    const Promise first{"song.sng", older, between, "saved once"};
    const Promise second = promiseOf("song.sng", between);
    expectNoBadState("a score saved twice", log, [&](const DiskState& state) {
        return state.said.contains("saved once") ? broken(state, second) : broken(state, first);
    });
}

// The run ends as safe only when the saved score is on the disk.
TEST_F(AScoreOnTheDisk, SavedAtTheEndOfTheProgramIsInItsFileOrRecovered) {
    std::filesystem::create_directory(stage.path() / "Songs");
    const auto log = recorded(stage.path(), [&](DiskRecorder& recorder) {
        host::HostHistoryStore store(stage.path() / "state/history");
        store.add({}, keptText(studio.score));
        while (!recorder.isAllOnTheDisk())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        recorder.mark("kept");
        files.SaveScoreFile(stage.at("Songs/song.sng"));
        recorder.mark(saved);
        store.end(true);
    });
    const Promise promise = promiseOf("Songs/song.sng", {});
    const auto isRecovered = [](const DiskState& state) {
        const DiskStage after;
        std::filesystem::create_directory(after.path() / "Songs");
        for (const auto& [name, content] : state.files)
            after.put(name, content);
        testing::internal::CaptureStderr();
        const auto recovered =
            host::HostHistoryStore(after.path() / "state/history").recoverInto(after.at("Songs"));
        testing::internal::GetCapturedStderr();
        return !recovered.empty();
    };
    expectNoBadState("a score saved at the end", log, [&](const DiskState& state) {
        const bool isSafe = state.files.contains(promise.name) || isRecovered(state);
        if (state.said.contains("kept") && !isSafe)
            return std::string("the score is lost");
        return broken(state, promise);
    });
}

// A new name is tried first: a file is created and deleted. So a power cut may leave an empty file,
// which does no harm, but never a part of the export.
TEST_F(AScoreOnTheDisk, ExportedUnderANewNameIsThereWholeOrEmptyOrNotAtAll) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        files.ExportMidiFile(stage.at("song.mid"));
        recorder.mark(saved);
    });
    EXPECT_GT(stage.content("song.mid").size(), 100U);
    const Promise promise = promiseOf("song.mid", {});
    const Promise afterTrial{promise.name, "", promise.after};
    expectNoBadState("a MIDI export under a new name", log, [&](const DiskState& state) {
        const bool isThere = state.files.contains(promise.name);
        return firstOf(
            {broken(state, isThere ? afterTrial : promise), strangers(state, {promise.name})});
    });
    EXPECT_EQ(stage.names(), std::vector<std::string>{promise.name});
}

// The bytes of the old file after the last new one stay, so they are a part of the new file.
TEST_F(AScoreOnTheDisk, ExportedOverALongerFileIsTheOlderOrTheNewerOne) {
    const std::string older(20'000, 'x');
    stage.put("song.mid", older);
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        files.ExportMidiFile(stage.at("song.mid"));
        recorder.mark(saved);
    });
    EXPECT_EQ(stage.content("song.mid").substr(0, 4), "MThd");
    EXPECT_EQ(stage.content("song.mid").size(), 20'000U);
    expectPromiseKept("a MIDI export over a longer one", log, promiseOf("song.mid", older));
}

} // namespace
} // namespace velorin::disk

// A power cut while the score is kept for the next start, and while that start puts it back.
#include "DiskStage.h"
#include "host/KeptFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace velorin::disk {
namespace {

namespace fs = std::filesystem;

class AKeptScoreOnTheDisk : public testing::Test {
protected:
    AKeptScoreOnTheDisk() { fs::create_directories(stage.path() / "Songs"); }

    /// A text long enough to be torn; `number` tells it from the others.
    static std::string text(int number) {
        return "score " + std::to_string(number) +
               std::string(200, static_cast<char>('a' + number));
    }

    /// A disk that was left in `state`, in a folder of its own.
    static void lay(const DiskStage& other, const DiskState& state) {
        fs::create_directories(other.path() / "Songs");
        for (const auto& [name, content] : state.files)
            other.put(name, content);
    }

    /// What the user finds in "Songs" after the next start: the number of the score, 0 for none, -1
    /// for one that is damaged or of which there are two kinds.
    static int recoveredFrom(const DiskState& state, const char* folder = "state") {
        const DiskStage after;
        lay(after, state);
        testing::internal::CaptureStderr();
        (void)host::KeptFolder(after.path() / folder).recoverInto(after.at("Songs"));
        testing::internal::GetCapturedStderr();
        int found = 0;
        for (const auto& entry : fs::directory_iterator(after.path() / "Songs")) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with('.'))
                continue;
            const std::string content = after.content("Songs/" + name);
            const int number = content.size() > 6 ? content[6] - '0' : -1;
            if (content != text(number) || (found != 0 && found != number))
                return -1;
            found = number;
        }
        return found;
    }

    /// Until a thread of the folder has done it; false after a minute.
    static bool comesTrue(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

    static std::string isOnTheDisk(int number) {
        return "score " + std::to_string(number) + " is on the disk";
    }

    /// Each mark promises the score of its number, or a later one.
    static std::string judged(const DiskState& state, int last) {
        const int found = recoveredFrom(state, "state/velorin");
        int promised = 0;
        for (int number = 1; number <= last; ++number)
            if (state.said.contains(isOnTheDisk(number)))
                promised = number;
        if (found < promised || found > last)
            return "score " + std::to_string(found) + " comes back instead of " +
                   std::to_string(promised);
        return {};
    }

    DiskStage stage;
};

TEST_F(AKeptScoreOnTheDisk, ComesBackAsTheLatestOrTheOneBefore) {
    constexpr int last = 3;
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::KeptFolder kept(stage.path() / "state/velorin"); // neither is there on a first run
        for (int number = 1; number <= last; ++number) {
            kept.keep(text(number));
            EXPECT_TRUE(
                comesTrue([&] { return recorder.syncsOfFolder("state/velorin") >= number; }));
            recorder.mark(isOnTheDisk(number));
        }
    });
    expectNoBadState("the kept score", log,
                     [](const DiskState& state) { return judged(state, last); });
}

// Once it is forgotten nothing is promised, but what comes back is never an older score.
TEST_F(AKeptScoreOnTheDisk, ThatIsForgottenComesBackAsTheLatestOrNotAtAll) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::KeptFolder kept(stage.path() / "state");
        for (int number = 1; number <= 2; ++number) {
            kept.keep(text(number));
            EXPECT_TRUE(comesTrue([&] { return recorder.syncsOfFolder("state") >= number; }));
        }
        recorder.mark("settled");
        kept.forget();
    });
    expectNoBadState("the kept score, forgotten", log, [](const DiskState& state) -> std::string {
        const int found = recoveredFrom(state);
        const bool isGood = found == 2 || found == 0 || (found == 1 && state.said.empty());
        return isGood ? "" : "score " + std::to_string(found) + " comes back";
    });
}

TEST_F(AKeptScoreOnTheDisk, IsNeverLostWhileTheNextStartPutsItIntoSongs) {
    {
        DiskStage earlier;
        host::KeptFolder kept(earlier.path() / "state");
        kept.keep(text(1));
        EXPECT_TRUE(comesTrue([&] {
            for (const std::string& name : earlier.names())
                if (name.ends_with(".score")) {
                    stage.put("state/" + fs::path(name).filename().string(), earlier.content(name));
                    return true;
                }
            return false;
        }));
    }
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(host::KeptFolder(stage.path() / "state").recoverInto(stage.at("Songs")).size(),
                  1U);
        testing::internal::GetCapturedStderr();
        recorder.mark(isOnTheDisk(1));
    });
    expectNoBadState("a recovered score", log, [](const DiskState& state) -> std::string {
        for (const auto& [name, content] : state.files)
            if (name.starts_with("Songs/recovered") && content != text(1))
                return name + " is not whole";
        return recoveredFrom(state) == 1 ? "" : "the score is lost";
    });
}

} // namespace
} // namespace velorin::disk

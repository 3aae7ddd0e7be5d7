// A power cut while the history is kept, cleared or ended, and while the next start recovers a
// score.
#include "DiskStage.h"
#include "host/state/HostHistoryStore.h"
#include "model/Score.h"
#include "model/ScoreWriter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

namespace velorin::disk {
namespace {

namespace fs = std::filesystem;

/// What a start after the power cut finds.
struct Aftermath {
    int recovered = 0;    ///< the number of the score in "Songs"; 0 for none, -1 for a wrong one
    std::set<int> states; ///< the numbers in the history
    std::string fault;    ///< of an entry
};

class AHistoryOnTheDisk : public testing::Test {
protected:
    AHistoryOnTheDisk() { fs::create_directories(stage.path() / "Songs"); }

    /// A score with its number as a note.
    static std::string text(int number) {
        const auto score = std::make_unique<Score>();
        score->NoteArray.write(0, 0, static_cast<std::int16_t>(number));
        return keptText(*score);
    }
    static int numberOf(const std::string& score) {
        for (int number = 1; number < 10; ++number)
            if (score == text(number))
                return number;
        return -1;
    }

    static std::int64_t add(host::HostHistoryStore& store, int number) {
        platform::HistoryEntry entry;
        entry.text = std::to_string(number);
        return store.add(entry, text(number));
    }

    static void settle(DiskRecorder& recorder, const std::string& mark) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!recorder.isAllOnTheDisk()) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << mark;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        recorder.mark(mark);
    }

    /// The file with the states, of which there is one.
    [[nodiscard]] fs::path onlyPack() const {
        for (const auto& entry : fs::directory_iterator(history()))
            if (entry.path().extension() == ".states")
                return entry.path();
        return {};
    }

    static void waitUntilGone(const fs::path& file) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (fs::exists(file)) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << file;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    static int recoveredIn(const DiskStage& after) {
        int found = 0;
        for (const auto& entry : fs::directory_iterator(after.path() / "Songs")) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with('.'))
                continue;
            const int number = numberOf(after.content("Songs/" + name));
            if (found != 0 && found != number)
                return -1;
            found = number;
        }
        return found;
    }

    static Aftermath after(const DiskState& state) {
        const DiskStage stage;
        fs::create_directories(stage.path() / "Songs");
        for (const auto& [name, content] : state.files)
            stage.put(name, content);
        testing::internal::CaptureStderr();
        Aftermath found;
        host::HostHistoryStore store(stage.path() / "state/velorin/history");
        (void)store.recoverInto(stage.at("Songs"));
        for (const platform::HistoryEntry& entry : store.entries()) {
            const auto score = store.score(entry.state);
            if (!score || text(std::stoi(entry.text)) != *score)
                found.fault = "state " + entry.text + " has another score";
            found.states.insert(std::stoi(entry.text));
        }
        found.recovered = recoveredIn(stage);
        if (testing::internal::GetCapturedStderr().find("damaged") != std::string::npos)
            found.fault = "damage is reported";
        return found;
    }

    [[nodiscard]] fs::path history() const { return stage.path() / "state/velorin/history"; }

    DiskStage stage;
};

std::string fault(const Aftermath& found, const std::set<int>& allowed) {
    if (!found.fault.empty())
        return found.fault;
    if (!allowed.contains(found.recovered))
        return "score " + std::to_string(found.recovered) + " comes back";
    return {};
}

/// The largest number among the marks; 0 without one.
int promised(const DiskState& state) {
    int number = 0;
    for (const std::string& mark : state.said)
        number = std::max(number, std::stoi(mark));
    return number;
}

std::set<int> range(int first, int last) {
    std::set<int> numbers;
    for (int number = first; number <= last; ++number)
        numbers.insert(number);
    return numbers;
}

/// Every promised state is in the history, and the last of them or a later one comes back.
std::string faultOfAdding(const DiskState& state, const Aftermath& found, int last) {
    const int least = promised(state);
    for (const int number : range(1, least))
        if (!found.states.contains(number))
            return "state " + std::to_string(number) + " is lost";
    return fault(found, range(least, last));
}

TEST_F(AHistoryOnTheDisk, HasEachStateThatWasAddedAndRecoversTheLast) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::HostHistoryStore store(history()); // no folder exists on a first run
        for (int number = 1; number <= 3; ++number) {
            add(store, number);
            settle(recorder, std::to_string(number));
        }
        store.end(false);
    });
    expectNoBadState("the history", log,
                     [](const DiskState& state) { return faultOfAdding(state, after(state), 3); });
}

TEST_F(AHistoryOnTheDisk, HasEachStateAlsoIfEachIsInAPackOfItsOwn) {
    host::HistorySettings settings;
    settings.packBytes = 1;
    const auto log = recorded(stage.path(), [&](DiskRecorder& recorder) {
        host::HostHistoryStore store(history(), nullptr, settings);
        for (int number = 1; number <= 3; ++number) {
            add(store, number);
            settle(recorder, std::to_string(number));
        }
        store.end(false);
    });
    expectNoBadState("the history, in packs", log,
                     [](const DiskState& state) { return faultOfAdding(state, after(state), 3); });
}

// States that are added faster than the disk takes them.
TEST_F(AHistoryOnTheDisk, AddedToAtOnceRecoversOneOfThem) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::HostHistoryStore store(history());
        for (int number = 1; number <= 4; ++number)
            add(store, number);
        settle(recorder, "4");
        store.end(false);
    });
    expectNoBadState("the history, added to at once", log,
                     [](const DiskState& state) { return faultOfAdding(state, after(state), 4); });
}

TEST_F(AHistoryOnTheDisk, RecoversTheStateThatTheUserWentBackTo) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::HostHistoryStore store(history());
        const auto first = add(store, 1);
        add(store, 2);
        settle(recorder, "2");
        store.setCurrent(first);
        settle(recorder, "3"); // that the user went back
        store.end(false);
    });
    expectNoBadState("the history, gone back", log, [](const DiskState& state) {
        const int least = promised(state);
        if (least == 3)
            return fault(after(state), {1});
        return least == 2 ? fault(after(state), {1, 2}) : fault(after(state), {0, 1, 2});
    });
}

TEST_F(AHistoryOnTheDisk, ThatEndsSafeRecoversTheLastStateOrNone) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::HostHistoryStore store(history());
        add(store, 1);
        add(store, 2);
        settle(recorder, "2");
        store.end(true);
        settle(recorder, "3");
    });
    expectNoBadState("the history, ended", log, [](const DiskState& state) {
        const int least = promised(state);
        if (least == 3)
            return fault(after(state), {0});
        return fault(after(state), least == 2 ? std::set<int>{0, 2} : std::set<int>{0, 1, 2});
    });
}

TEST_F(AHistoryOnTheDisk, ThatIsClearedKeepsTheCurrentStateForRecovery) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        host::HostHistoryStore store(history());
        add(store, 1);
        add(store, 2);
        settle(recorder, "2");
        const fs::path cleared = onlyPack();
        store.clear();
        waitUntilGone(cleared); // a second sync removes it
        settle(recorder, "3");
        store.end(false);
    });
    expectNoBadState("the history, cleared", log, [](const DiskState& state) -> std::string {
        const Aftermath found = after(state);
        const int least = promised(state);
        if (least == 3 && !found.states.empty())
            return "a cleared state is there";
        return fault(found, least >= 2 ? std::set<int>{2} : std::set<int>{0, 1, 2});
    });
}

TEST_F(AHistoryOnTheDisk, IsNotLostWhileTheNextStartRecoversIt) {
    {
        host::HostHistoryStore store(history());
        add(store, 1);
    }
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(host::HostHistoryStore(history()).recoverInto(stage.at("Songs")).size(), 1U);
        testing::internal::GetCapturedStderr();
        recorder.mark("1");
    });
    expectNoBadState("a recovered score", log, [](const DiskState& state) -> std::string {
        for (const auto& [name, content] : state.files)
            if (name.starts_with("Songs/recovered") && content != text(1))
                return name + " is not whole";
        const Aftermath found = after(state);
        if (!found.states.contains(1))
            return "the state is lost";
        return fault(found, {1});
    });
}

} // namespace
} // namespace velorin::disk

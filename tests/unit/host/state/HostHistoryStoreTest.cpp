// The history: what is added is found again, in this run and in later ones.
#include "HistoryStage.h"
#include "host/state/HistoryFolder.h"
#include "support/FullDisk.h"
#include "support/ScriptedNotices.h"

#include <sys/stat.h>

namespace velorin::host::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class HostHistoryStoreTest : public HistoryStage {};

TEST_F(HostHistoryStoreTest, StatesComeBackWithTheirScores) {
    HostHistoryStore store(history);
    const auto one = store.add(change("one"), sheetWith(60));
    const auto two = store.add(change("two", one), sheetWith(61));
    EXPECT_LT(one, two);
    EXPECT_EQ(store.score(one), sheetWith(60));
    EXPECT_EQ(store.score(two), sheetWith(61));
    EXPECT_FALSE(store.score(12345));
    const auto entries = store.entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[1].id, two);
    EXPECT_EQ(entries[1].state, two);
    EXPECT_EQ(entries[1].parent, one);
    EXPECT_EQ(entries[1].kind, "drawn");
    EXPECT_EQ(entries[1].text, "two");
}

TEST_F(HostHistoryStoreTest, ScoreOfAStateIsTheExactTextThatWasAdded) {
    const std::string odd = "1,2\r\nnot a score at all, with \"quotes\" and \xC3\xA9\r\n";
    HostHistoryStore store(history);
    EXPECT_EQ(store.score(store.add(change("odd"), odd)), odd);
}

TEST_F(HostHistoryStoreTest, SavedMomentIsAnEntryOfItsState) {
    HostHistoryStore store(history);
    const auto drawn = store.add(change("drawn"), sheetWith(60));
    platform::HistoryEntry saved = change("saved");
    saved.state = drawn;
    saved.name = "waltz.sng";
    saved.isSaved = true;
    const auto moment = store.add(saved, {});
    const auto entries = store.entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[1].id, moment);
    EXPECT_EQ(entries[1].state, drawn);
    EXPECT_EQ(entries[1].name, "waltz.sng");
    EXPECT_TRUE(entries[1].isSaved);
    EXPECT_FALSE(store.score(moment));
}

TEST_F(HostHistoryStoreTest, StatesSurviveTheEndOfTheProgram) {
    {
        HostHistoryStore store(history);
        (void)store.add(change("one"), sheetWith(60));
        (void)store.add(change("two"), sheetWith(61));
        store.end(true);
    }
    HostHistoryStore next(history);
    const auto entries = next.entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].text, "one");
    EXPECT_EQ(next.score(entries[1].state), sheetWith(61));
}

TEST_F(HostHistoryStoreTest, NoFinishedChangeIsMissingAfterACrash) {
    cutShort([](HostHistoryStore& store) {
        for (int i = 0; i < 50; ++i)
            (void)store.add(change(std::to_string(i)), sheetWith(60));
    });
    EXPECT_EQ(found().size(), 50U);
    EXPECT_EQ(logged, "");
}

TEST_F(HostHistoryStoreTest, EntriesOfAllRunsAreInTheOrderOfTime) {
    std::int64_t now = 5'000'000;
    const auto run = [this, &now](const char* text) {
        HistorySettings settings;
        settings.nowUs = [&now] { return now; };
        (void)HostHistoryStore(history, nullptr, settings).add(change(text), sheetWith(60));
        now -= 1'000'000; // each run began before the last one
    };
    for (const char* text : {"third", "second", "first"})
        run(text);
    EXPECT_EQ(found(), (Texts{"first", "second", "third"}));
}

TEST_F(HostHistoryStoreTest, IdsGrowAlsoIfTheClockIsSetBack) {
    std::int64_t now = 5'000'000;
    HistorySettings settings;
    settings.nowUs = [&now] { return now; };
    HostHistoryStore store(history, nullptr, settings);
    EXPECT_EQ(store.add(change("one"), sheetWith(60)), 5'000'000);
    now = 1'000'000;
    EXPECT_EQ(store.add(change("two"), sheetWith(61)), 5'000'001);
}

TEST_F(HostHistoryStoreTest, RunThatAddsNothingCreatesNoFolder) {
    {
        HostHistoryStore store(history);
        store.setCurrent(0);
        EXPECT_TRUE(store.entries().empty());
        EXPECT_TRUE(store.recoverInto(songs.string()).empty());
        EXPECT_EQ(store.bytesUsed(), 0U);
        store.clear();
        store.end(true);
    }
    EXPECT_FALSE(fs::exists(state));
}

TEST_F(HostHistoryStoreTest, FilesAreForTheUserAlone) {
    HostHistoryStore store(history);
    (void)store.add(change("one"), sheetWith(60));
    EXPECT_EQ(fs::status(state).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(history).permissions(), fs::perms::owner_all);
    EXPECT_EQ(filesIn(history), 2);
    for (const auto& file : fs::directory_iterator(history))
        EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(HostHistoryStoreTest, PackEndsWhenItIsFullAndWhenTheDayChanges) {
    std::int64_t now = 0;
    HistorySettings settings;
    settings.packBytes = 700;
    settings.nowUs = [&now] { return now; };
    HostHistoryStore store(history, nullptr, settings);
    for (int i = 0; i < 10; ++i)
        (void)store.add(change(std::to_string(i)), sheetWith(60)); // about 180 bytes each
    const std::size_t ofOneDay = names(".states").size();
    EXPECT_GE(ofOneDay, 2U);
    for (const std::string& pack : names(".states"))
        EXPECT_LE(fs::file_size(history / pack), 700U);
    now += 86'400'000'000;
    (void)store.add(change("tomorrow"), sheetWith(60));
    EXPECT_EQ(names(".states").size(), ofOneDay + 1);
    EXPECT_EQ(store.entries().size(), 11U);
    std::uint64_t bytes = 0;
    for (const std::string& pack : names(".states"))
        bytes += fs::file_size(history / pack);
    EXPECT_EQ(store.bytesUsed(), bytes);
}

TEST_F(HostHistoryStoreTest, AfterTheEndNothingIsAdded) {
    HostHistoryStore store(history);
    const auto one = store.add(change("one"), sheetWith(60));
    store.end(true);
    EXPECT_LT(one, store.add(change("two"), sheetWith(61)));
    store.setCurrent(0);
    EXPECT_EQ(store.entries().size(), 1U);
}

TEST_F(HostHistoryStoreTest, ReadsWhatAnotherCopyAddsMeanwhile) {
    HostHistoryStore store(history);
    HostHistoryStore other(history);
    (void)store.add(change("one"), sheetWith(60));
    EXPECT_EQ(other.entries().size(), 1U);
    const auto two = store.add(change("two"), sheetWith(61));
    EXPECT_EQ(other.score(two), sheetWith(61));
    EXPECT_EQ(other.entries().size(), 2U);
}

TEST_F(HostHistoryStoreTest, FolderThatIsRemovedMeanwhileIsMadeAgain) {
    HostHistoryStore store(history);
    (void)store.add(change("one"), sheetWith(60));
    fs::remove_all(history);
    const auto two = store.add(change("two"), sheetWith(61));
    EXPECT_EQ(store.score(two), sheetWith(61));
    EXPECT_EQ(store.entries().size(), 1U);
    EXPECT_EQ(filesIn(history), 2);
}

// The packs of a long history must not hold up the first undo.
TEST_F(HostHistoryStoreTest, StatesOfTheRunAreReadWithoutThePacksOfOthers) {
    cutShortWith(sheetWith(60));
    std::string bytes = bytesOf(onlyPack());
    bytes[bytes.size() - 10] ^= 1;
    put(onlyPack(), bytes);
    HostHistoryStore store(history);
    const auto one = store.add(change("one"), sheetWith(61));
    (void)store.add(change("two"), sheetWith(62));
    store.setCurrent(one);
    EXPECT_EQ(store.score(one), sheetWith(61));
    EXPECT_FALSE(fs::exists(history / "damaged")) << "the other pack was read";
}

// Clearing

TEST_F(HostHistoryStoreTest, ClearRemovesTheEntriesOfAllRuns) {
    cutShortWith(sheetWith(60));
    (void)recover();
    {
        HostHistoryStore store(history);
        (void)store.add(change("mine"), sheetWith(61));
        EXPECT_EQ(store.entries().size(), 2U);
        store.clear();
        EXPECT_TRUE(store.entries().empty());
        (void)store.add(change("afterwards"), sheetWith(62));
        EXPECT_EQ(store.entries().size(), 1U);
    }
    EXPECT_EQ(found(), Texts{"afterwards"});
}

TEST_F(HostHistoryStoreTest, CurrentStateIsRecoveredAlsoAfterAClear) {
    cutShort([](HostHistoryStore& store) {
        (void)store.add(change("one"), sheetWith(60));
        store.clear();
        HostHistoryStore idle("");
    });
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), sheetWith(60));
}

TEST_F(HostHistoryStoreTest, ScoreOfTheCurrentStateIsThereAfterAClear) {
    HostHistoryStore store(history);
    const auto one = store.add(change("one"), sheetWith(60));
    const auto two = store.add(change("two"), sheetWith(61));
    store.clear();
    EXPECT_EQ(store.score(two), sheetWith(61));
    EXPECT_FALSE(store.score(one));
}

TEST_F(HostHistoryStoreTest, ClearLeavesWhatAnotherCopyKeeps) {
    HostHistoryStore other(history);
    (void)other.add(change("of the other"), sheetWith(60));
    {
        HostHistoryStore store(history);
        (void)store.add(change("mine"), sheetWith(61));
        store.clear();
        store.end(true);
    }
    EXPECT_EQ(found(), Texts{"of the other"});
}

// Failure

class UnwritableHistory : public HistoryStage {
protected:
    [[nodiscard]] std::string sentence() const {
        return "The history cannot be kept in \"" + history.string() +
               "\", and a crash would lose the score. Save often, and make room there or allow "
               "writing.";
    }
    scripted::ScriptedNotices notices;
};

TEST_F(UnwritableHistory, IsReportedOnceAndStatesStayInMemory) {
    put(folder.path() / "state", "a file stands where the folder would be");
    HostHistoryStore store(history, &notices);
    const auto one = store.add(change("one"), sheetWith(60));
    const auto two = store.add(change("two"), sheetWith(61));
    store.setCurrent(one);
    ASSERT_EQ(notices.posted.size(), 1U);
    EXPECT_EQ(notices.posted[0].text, sentence());
    EXPECT_EQ(store.score(one), sheetWith(60));
    EXPECT_EQ(store.score(two), sheetWith(61));
    EXPECT_EQ(store.entries().size(), 2U);
}

TEST_F(UnwritableHistory, KeepsTheLastHundredInMemory) {
    put(folder.path() / "state", "a file stands where the folder would be");
    HostHistoryStore store(history, &notices);
    const auto first = store.add(change("first"), sheetWith(60));
    std::int64_t second = store.add(change("second"), sheetWith(61));
    for (int i = 0; i < 99; ++i)
        (void)store.add(change("more"), sheetWith(62));
    EXPECT_FALSE(store.score(first));
    EXPECT_EQ(store.score(second), sheetWith(61));
}

TEST_F(UnwritableHistory, IsWrittenInOrderOnceThatIsPossible) {
    put(folder.path() / "state", "a file stands where the folder would be");
    HostHistoryStore store(history, &notices);
    (void)store.add(change("one"), sheetWith(60));
    (void)store.add(change("two"), sheetWith(61));
    fs::remove(folder.path() / "state");
    (void)store.add(change("three"), sheetWith(62));
    EXPECT_EQ(found(), (Texts{"one", "two", "three"}));
    EXPECT_EQ(store.entries().size(), 3U);
}

TEST_F(UnwritableHistory, OfAFullDiskHasNoHalfOfAState) {
    HostHistoryStore store(history, &notices);
    (void)store.add(change("one"), sheetWith(60));
    const auto whole = fs::file_size(onlyPack());
    std::int64_t two = 0;
    {
        const FullDisk disk(whole + 50);
        two = store.add(change("two"), sheetWith(61));
        EXPECT_EQ(fs::file_size(onlyPack()), whole);
        EXPECT_EQ(store.score(two), sheetWith(61));
        EXPECT_EQ(notices.posted.size(), 1U);
    }
    (void)store.add(change("three"), sheetWith(62));
    EXPECT_EQ(found(), (Texts{"one", "two", "three"}));
    EXPECT_EQ(logged, "");
}

TEST_F(UnwritableHistory, OfADiskThatIsFullFromTheStartLeavesNoEmptyPack) {
    HostHistoryStore store(history, &notices);
    const FullDisk disk(10);
    (void)store.add(change("one"), sheetWith(60));
    EXPECT_EQ(names(".states"), Texts{});
    EXPECT_EQ(store.entries().size(), 1U);
}

TEST_F(UnwritableHistory, WithoutAStateFolderStaysInMemory) {
    HostHistoryStore store("");
    testing::internal::CaptureStderr();
    const auto one = store.add(change("one"), sheetWith(60));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(store.score(one), sheetWith(60));
    EXPECT_TRUE(store.recoverInto(songs.string()).empty());
    store.clear();
    store.end(false);
}

// Damage

class DamagedHistory : public HistoryStage {
protected:
    /// Three states in one pack; the second is damaged.
    void damageTheSecond() {
        std::size_t begin = 0;
        {
            HostHistoryStore store(history);
            (void)store.add(change("one"), sheetWith(60));
            begin = fs::file_size(onlyPack());
            (void)store.add(change("two"), sheetWith(61));
            (void)store.add(change("three"), sheetWith(62));
            store.end(true);
        }
        std::string bytes = bytesOf(onlyPack());
        bytes[begin + 60] ^= 1;
        put(onlyPack(), bytes);
    }
};

TEST_F(DamagedHistory, LosesTheDamagedStateAlone) {
    damageTheSecond();
    EXPECT_EQ(found(), (Texts{"one", "three"}));
}

TEST_F(DamagedHistory, IsReportedOnceAndSetAside) {
    damageTheSecond();
    (void)found();
    ASSERT_EQ(filesIn(history / "damaged"), 1);
    const fs::path copy = fs::directory_iterator(history / "damaged")->path();
    EXPECT_EQ(logged, "velorin: a piece of the history in " + onlyPack().string() +
                          " is damaged and left out; its bytes are in " + copy.string() + "\n");
    EXPECT_NE(bytesOf(onlyPack()).find(bytesOf(copy)), std::string::npos);
    EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(found(), (Texts{"one", "three"}));
    EXPECT_EQ(logged, "") << "the second time";
}

TEST_F(DamagedHistory, ThatIsClearedLeavesNothing) {
    damageTheSecond();
    (void)found();
    HostHistoryStore(history).clear();
    EXPECT_EQ(names(), Texts{"damaged"});
    EXPECT_EQ(filesIn(history / "damaged"), 0);
}

TEST_F(DamagedHistory, OfStrangeFilesIsReadAsFarAsItGoes) {
    cutShortWith(sheetWith(60));
    put(history / "1-2-3.0001.states", "not a history at all, but long enough to be one");
    put(history / "1-2-4.0001.states", "");
    put(history / "1-2-5.x.states", "");
    put(history / "notes.txt", "mine");
    fs::create_directory(history / "1-2-6.0001.states");
    ASSERT_EQ(mkfifo((history / "1-2-7.0001.states").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", history / "1-2-8.0001.states");
    EXPECT_EQ(found().size(), 1U);
    EXPECT_EQ(recover().size(), 1U);
    EXPECT_TRUE(fs::exists(history / "notes.txt"));
}

} // namespace
} // namespace velorin::host::test

// The converter lists the history and converts its states.
#include "convert/KeptHistory.h"

#include "convert/Conversion.h"
#include "convert/LoadedScore.h"
#include "host/disk/DurableFile.h"
#include "host/state/HostHistoryStore.h"
#include "model/ScoreWriter.h"
#include "support/ScriptedFiles.h"
#include "support/ScriptedMidi.h"
#include "support/VirtualTime.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <ctime>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

class AKeptHistory : public testing::Test {
protected:
    AKeptHistory() {
        setenv("TZ", "UTC", 1);
        tzset();
        settings.nowUs = [this] { return nowUs.load(); };
        score->NoteArray.write(2, 3, 60);
        score->PolyArray.write(1, 5, 1);
    }

    std::int64_t add(host::HostHistoryStore& store, const std::string& text,
                     const std::string& name = {}) {
        platform::HistoryEntry entry;
        entry.text = text;
        entry.name = name;
        score->Tempo = static_cast<std::int16_t>(score->Tempo + 1);
        nowUs += 61'000'000;
        return store.add(entry, keptText(*score));
    }

    scripted::TemporaryFolder folder;
    fs::path history = folder.path() / "history";
    host::HistorySettings settings;
    // The store's worker asks for the time, too.
    std::atomic<std::int64_t> nowUs = 1'893'456'000'000'000; // the start of 2030
    std::unique_ptr<Score> score = std::make_unique<Score>();
};

TEST_F(AKeptHistory, IsListedWithTheNewestLast) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "3 notes drawn on channel 2");
    add(store, "tempo 102", "waltz.sng");
    EXPECT_EQ(KeptHistory(history).list(), "1  2030-01-01 00:01:01  3 notes drawn on channel 2\n"
                                           "2  2030-01-01 00:02:02  tempo 102 [waltz.sng]\n");
}

TEST_F(AKeptHistory, HasItsNumbersInOneColumn) {
    host::HostHistoryStore store(history, nullptr, settings);
    for (int i = 0; i < 10; ++i)
        add(store, "more");
    const std::string list = KeptHistory(history).list();
    EXPECT_TRUE(list.starts_with(" 1  2030"));
    EXPECT_NE(list.find("\n10  2030"), std::string::npos);
}

TEST_F(AKeptHistory, IsListedWithoutControlCharacters) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "opened \x1B[2J.sng");
    EXPECT_EQ(KeptHistory(history).list(), "1  2030-01-01 00:01:01  opened ?[2J.sng\n");
}

TEST_F(AKeptHistory, IsReadWhileTheProgramRunsAndStaysAsItIs) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "one");
    const auto filesIn = [](const fs::path& path) {
        return std::distance(fs::directory_iterator(path), {});
    };
    const auto before = filesIn(history);
    EXPECT_FALSE(KeptHistory(history).isEmpty());
    EXPECT_EQ(filesIn(history), before);
    add(store, "two");
    EXPECT_EQ(*KeptHistory(history).score(2), keptText(*score));
}

TEST_F(AKeptHistory, ThatDoesNotExistIsEmpty) {
    const KeptHistory none(history);
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.list(), "");
    EXPECT_EQ(none.score(1).reason(), "the history has no entry 1, it is empty");
    EXPECT_FALSE(fs::exists(history));
    EXPECT_TRUE(KeptHistory("").isEmpty());
}

TEST_F(AKeptHistory, SaysWhichEntryItDoesNotHave) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "one");
    EXPECT_EQ(KeptHistory(history).score(2).reason(),
              "the history has no entry 2, the last one is entry 1");
    EXPECT_FALSE(KeptHistory(history).score(0));
}

TEST_F(AKeptHistory, GivesTheStateOfASavedMoment) {
    host::HostHistoryStore store(history, nullptr, settings);
    platform::HistoryEntry saved;
    saved.state = add(store, "one");
    saved.text = "saved as waltz.sng";
    store.add(saved, {});
    EXPECT_EQ(*KeptHistory(history).score(2), keptText(*score));
}

TEST_F(AKeptHistory, CountsDamageAndSetsNothingAside) {
    {
        host::HostHistoryStore store(history, nullptr, settings);
        add(store, "one");
        add(store, "two");
        store.end(true);
    }
    const fs::path pack = fs::directory_iterator(history)->path();
    std::string bytes = *host::readFile(pack);
    bytes[60] ^= 1;
    fs::remove(pack);
    (void)host::writeNewFile(pack, bytes);
    const KeptHistory kept(history);
    EXPECT_EQ(kept.list(), "1  2030-01-01 00:02:02  two\n");
    EXPECT_EQ(kept.damagedPieces(), 1);
    EXPECT_EQ(kept.damageReport(), "a damaged piece of the history is left out");
    EXPECT_FALSE(fs::exists(history / "damaged"));
}

TEST_F(AKeptHistory, CountsEachDamagedPiece) {
    {
        host::HostHistoryStore store(history, nullptr, settings);
        add(store, "one");
        add(store, "two");
        add(store, "three");
        store.end(true);
    }
    const fs::path pack = fs::directory_iterator(history)->path();
    std::string bytes = *host::readFile(pack);
    bytes[60] ^= 1;
    bytes[bytes.size() - 20] ^= 1;
    fs::remove(pack);
    (void)host::writeNewFile(pack, bytes);
    const KeptHistory kept(history);
    EXPECT_EQ(kept.list(), "1  2030-01-01 00:02:02  two\n");
    EXPECT_EQ(kept.damagedPieces(), 2);
    EXPECT_EQ(kept.damageReport(), "2 damaged pieces of the history are left out");
}

TEST_F(AKeptHistory, WritesAStateAsAScoreWithItsChordMarksInPlace) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "one");
    Task task{"entry 1 of the history", folder.path() / "out.sng", Kind::sng};
    task.text = *KeptHistory(history).score(1);
    EXPECT_EQ(convert(task, {}, {}).reason(), "");
    const scripted::VirtualTime time;
    scripted::ScriptedMidi midi(time);
    LoadedScore written(midi);
    ASSERT_TRUE(written.open((folder.path() / "out.sng").string()));
    EXPECT_EQ(keptText(written.studio.score), keptText(*score));
}

TEST_F(AKeptHistory, ConvertsAStateLikeAScore) {
    host::HostHistoryStore store(history, nullptr, settings);
    add(store, "one");
    Task task{"entry 1 of the history", folder.path() / "state.mid", Kind::mid};
    task.text = *KeptHistory(history).score(1);
    Options options;
    options.plainMidi = true; // the other MIDI file has the name of its source
    EXPECT_EQ(convert(task, options, {}).reason(), "");
    (void)host::writeNewFile(folder.path() / "in.sng", keptText(*score));
    const Task file{(folder.path() / "in.sng").string(), folder.path() / "file.mid", Kind::mid};
    EXPECT_EQ(convert(file, options, {}).reason(), "");
    EXPECT_EQ(host::readFile(folder.path() / "state.mid"),
              host::readFile(folder.path() / "file.mid"));
}

} // namespace
} // namespace velorin::convert

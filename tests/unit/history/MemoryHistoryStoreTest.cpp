// A history that is in memory alone.
#include "history/MemoryHistoryStore.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

platform::HistoryEntry entry(const std::string& text) {
    platform::HistoryEntry made;
    made.text = text;
    return made;
}

} // namespace

TEST(AMemoryHistoryStore, CountsItsStatesFromOne) {
    MemoryHistoryStore store;
    EXPECT_EQ(store.add(entry("a note"), "score 1"), 1);
    EXPECT_EQ(store.add(entry("two notes"), "score 2"), 2);
    EXPECT_EQ(store.score(1), "score 1");
    EXPECT_EQ(store.score(2), "score 2");
    EXPECT_FALSE(store.score(3));
    ASSERT_EQ(store.entries().size(), 2U);
    EXPECT_EQ(store.entries()[1].text, "two notes");
    EXPECT_EQ(store.entries()[1].state, 2);
    EXPECT_EQ(store.bytesUsed(), 14U);
}

TEST(AMemoryHistoryStore, KeepsASavedMomentWithTheStateThatWasSaved) {
    MemoryHistoryStore store;
    platform::HistoryEntry saved = entry("saved");
    saved.state = store.add(entry("a note"), "score 1");
    const std::int64_t moment = store.add(saved, {});
    EXPECT_EQ(store.entries()[1].state, 1);
    EXPECT_FALSE(store.score(moment));
}

TEST(AMemoryHistoryStore, DropsTheOldestScoresOfMoreThan64MiB) {
    MemoryHistoryStore store;
    const std::string large(30U << 20U, 'x');
    for (int i = 0; i < 3; ++i)
        store.add(entry("large"), large);
    EXPECT_FALSE(store.score(1));
    EXPECT_TRUE(store.score(2));
    EXPECT_TRUE(store.score(3));
    EXPECT_EQ(store.entries().size(), 3U);
    EXPECT_EQ(store.bytesUsed(), 60U << 20U);
    EXPECT_LE(store.bytesUsed(), store.mostBytes());
}

TEST(AMemoryHistoryStore, IsEmptyAfterAClearAndGivesNoNumberTwice) {
    MemoryHistoryStore store;
    store.add(entry("a note"), "score 1");
    store.clear();
    EXPECT_TRUE(store.entries().empty());
    EXPECT_FALSE(store.score(1));
    EXPECT_EQ(store.bytesUsed(), 0U);
    EXPECT_EQ(store.add(entry("a note"), "score"), 2);
}

TEST(AMemoryHistoryStore, HasNothingToRecover) {
    MemoryHistoryStore store;
    store.add(entry("a note"), "score 1");
    EXPECT_TRUE(store.recoverInto("Songs").empty());
}

// The rows of the history's list: order, days, filter, and what is current or undone.
#include "HistoryStage.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

struct HistoryModelTest : testing::Test, HistoryStage {
    HistoryModelTest() {
        model.today = [this] { return today; };
    }
    std::vector<std::string> rows() {
        model.refresh();
        return rowsOf(model);
    }
    HistoryModel model{history};
};

TEST_F(HistoryModelTest, TheNewestStateComesFirstBelowItsDay) {
    store.setTime(today.addDays(-7), 9, 5);
    draw(0, 0);
    store.setTime(today.addDays(-1), 21, 7);
    draw(1, 3);
    at(14, 34);
    draw(0, 4);
    EXPECT_THAT(rows(),
                ElementsAre("Today", "14:34, Note drawn on channel 1, column 5, now", "Yesterday",
                            "21:07, Note drawn on channel 2, column 4", "Friday 13 November",
                            "09:05, Note drawn on channel 1, column 1"));
}

TEST_F(HistoryModelTest, OnlyEntriesCanBeChosen) {
    draw(0, 0);
    model.refresh();
    EXPECT_TRUE(model.isDay(0));
    EXPECT_EQ(model.flags(model.index(0, 0)), Qt::NoItemFlags);
    EXPECT_FALSE(model.isDay(1));
    EXPECT_TRUE(model.flags(model.index(1, 0)).testFlag(Qt::ItemIsSelectable));
    EXPECT_EQ(model.line(-1), nullptr);
    EXPECT_EQ(model.line(2), nullptr);
}

TEST_F(HistoryModelTest, AnUndoneStateSaysSoAndTheOneBeforeItIsNow) {
    draw(0, 0);
    draw(0, 4);
    ASSERT_EQ(history.undo(), HistoryStep::done);
    EXPECT_THAT(rows(), ElementsAre("Today", "14:00, Note drawn on channel 1, column 5, undone",
                                    "14:00, Note drawn on channel 1, column 1, now"));
    history.undo();
    EXPECT_FALSE(model.refresh()) << "there is no new entry";
    EXPECT_EQ(model.nowId(), 0) << "the sheet of the start has no row";
    history.redo();
    EXPECT_THAT(rows(), ElementsAre("Today", "14:00, Note drawn on channel 1, column 5, undone",
                                    "14:00, Note drawn on channel 1, column 1, now"));
}

TEST_F(HistoryModelTest, AMomentOfSavingNamesItsFileAndIsNowUntilTheNextChange) {
    const scripted::TemporaryFolder folder;
    draw(0, 0);
    at(14, 31);
    save((folder.path() / "paper-boat.sng").string());
    EXPECT_THAT(rows(), ElementsAre("Today", "14:31, Saved, paper-boat.sng, now",
                                    "14:00, Note drawn on channel 1, column 1"));
    model.setFilter("boat");
    EXPECT_EQ(model.rowCount(), 2);
    model.setFilter("");
    at(14, 34);
    draw(0, 1);
    EXPECT_THAT(rows(), ElementsAre("Today", "14:34, Note drawn on channel 1, column 2, now",
                                    "14:31, Saved, paper-boat.sng",
                                    "14:00, Note drawn on channel 1, column 1"));
}

TEST_F(HistoryModelTest, FilterKeepsTheDaysThatHoldAMatch) {
    store.setTime(today.addDays(-1), 21, 7);
    draw(1, 3);
    at(14, 34);
    draw(0, 4);
    draw(1, 8);
    model.refresh();
    model.setFilter("  CHANNEL 2 ");
    EXPECT_THAT(rowsOf(model),
                ElementsAre("Today", "14:34, Note drawn on channel 2, column 9, now", "Yesterday",
                            "21:07, Note drawn on channel 2, column 4"));
    model.setFilter("channel 1");
    EXPECT_THAT(rowsOf(model), ElementsAre("Today", "14:34, Note drawn on channel 1, column 5"));
    model.setFilter("trumpet");
    EXPECT_THAT(rowsOf(model), IsEmpty());
    model.setFilter("");
    EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(HistoryModelTest, NewStatesPassTheFilterToo) {
    draw(0, 0);
    model.refresh();
    model.setFilter("channel 2");
    draw(1, 0);
    draw(0, 1);
    EXPECT_THAT(rows(), ElementsAre("Today", "14:00, Note drawn on channel 2, column 1"));
}

TEST_F(HistoryModelTest, AnEntryIsFoundByItsId) {
    const StateId first = draw(0, 0);
    const StateId second = draw(0, 1);
    model.refresh();
    EXPECT_EQ(model.rowOf(second), 1);
    EXPECT_EQ(model.rowOf(first), 2);
    EXPECT_EQ(model.rowOf(first - 1), -1);
    ASSERT_NE(model.find(first), nullptr);
    EXPECT_EQ(model.find(first)->id, first);
    EXPECT_EQ(model.find(0), nullptr);
    EXPECT_EQ(model.find(second + 1), nullptr);
}

TEST_F(HistoryModelTest, NothingIsLeftAfterTheHistoryWasCleared) {
    draw(0, 0);
    model.refresh();
    studio.score.ClearNoteArrays();
    history.changeFinished();
    history.clear();
    EXPECT_THAT(rows(), IsEmpty());
    draw(0, 7);
    EXPECT_THAT(rows(), ElementsAre("Today", "14:00, Note drawn on channel 1, column 8, now"));
}

} // namespace
} // namespace velorin

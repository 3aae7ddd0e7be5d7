// What is shown of a state: length, picture, rows.
#include "windows/history/StateSummary.h"
#include "HistoryStage.h"
#include "windows/texts/LengthText.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

constexpr QSize trueSize{768, 480}; // 64 columns and 40 lines of twelve pixels

struct StateSummaryTest : testing::Test, HistoryStage {
    const StateSummary& of(StateId state) {
        summaries.forget();
        return summaries.of(state, trueSize);
    }
    /// The columns of the picture in which a note of one column ends, counted from its edge.
    static std::vector<int> columnsWithNotes(const QImage& picture) {
        std::vector<int> columns;
        for (int column = 0; column < 64; ++column)
            for (int line = 0; line < 40; ++line) {
                const QColor bar = picture.pixelColor(column * 12 + 11, line * 12 + 5);
                if (bar == QColor(255, 0, 0) || bar == QColor(255, 192, 255))
                    columns.push_back(column);
            }
        return columns;
    }
    StateSummaries summaries{history, studio};
};

TEST_F(StateSummaryTest, LengthsAreMinutesAndSecondsAndFromAnHourOnHours) {
    EXPECT_EQ(lengthText(0), "0:00");
    EXPECT_EQ(lengthText(34.9), "0:35");
    EXPECT_EQ(lengthText(600), "10:00");
    EXPECT_EQ(lengthText(3723), "1:02:03");
}

TEST_F(StateSummaryTest, TheCurrentStateIsTheSameAsNow) {
    const StateId now = draw(0, 3);
    EXPECT_TRUE(of(now).isSame);
    EXPECT_THAT(of(now).rows, IsEmpty());
    draw(2, 4);
    draw(9, 4);
    EXPECT_FALSE(of(now).isSame);
    EXPECT_THAT(of(now).rows, ElementsAre(2, 9));
}

TEST_F(StateSummaryTest, ThePictureBeginsInTheBarOfTheFirstColumnThatDiffers) {
    draw(0, 10);
    draw(1, 102);
    const StateId before = draw(0, 120);
    draw(0, 101);
    EXPECT_THAT(columnsWithNotes(of(before).picture), ElementsAre(2, 20)); // from column 100 on
}

TEST_F(StateSummaryTest, AStateWithoutNotesThereShowsItsLastOnes) {
    draw(0, 10);
    const StateId before = draw(0, 99);
    draw(0, 300);
    EXPECT_THAT(columnsWithNotes(of(before).picture), ElementsAre(47)); // from column 52 on
    EXPECT_THAT(columnsWithNotes(of(history.current()).picture), ElementsAre(10))
        << "the same as now: from the first column that the window shows";
}

TEST_F(StateSummaryTest, ThePictureHasAllNotesIfTheyFitElseTheOneThatDiffers) {
    draw(0, 4, 20);
    const StateId close = draw(1, 5, 50);
    draw(0, 6, 20);
    EXPECT_THAT(columnsWithNotes(of(close).picture), ElementsAre(0, 1)); // from column 4 on
    const StateId far = draw(1, 7, 120);
    draw(1, 7, 119);
    EXPECT_THAT(columnsWithNotes(of(far).picture), ElementsAre(3));
}

TEST_F(StateSummaryTest, TheLastSummariesAreKeptUntilTheScoreChanges) {
    const StateId first = draw(0, 3);
    draw(0, 4);
    EXPECT_FALSE(summaries.of(first, trueSize).isLost);
    store.scores.erase(first);
    EXPECT_FALSE(summaries.of(first, trueSize).isLost) << "it was made before";
    EXPECT_TRUE(of(first).isLost);
}

TEST_F(StateSummaryTest, NothingOfTheProgramsScoreOrViewIsTouched) {
    const StateId first = draw(0, 3);
    draw(0, 500);
    studio.view.FirstColumn = 480;
    const std::int16_t lastColumn = studio.score.LastColumn;
    (void)of(first);
    EXPECT_EQ(studio.view.FirstColumn, 480);
    EXPECT_EQ(studio.score.LastColumn, lastColumn);
    EXPECT_TRUE(has(0, 500));
}

} // namespace
} // namespace velorin

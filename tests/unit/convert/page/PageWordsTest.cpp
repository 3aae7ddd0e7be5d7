// What a page says about a song.
#include "convert/page/PageWords.h"

#include "model/Score.h"

#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

struct ThePageWords : testing::Test {
    void note(int row, int column, int pitch, int instrument) {
        score.NoteArray.write(row, column, static_cast<std::int16_t>(pitch));
        score.InstrumentArray.write(row, column, static_cast<std::int16_t>(instrument));
    }
    [[nodiscard]] std::string description() const {
        return sheetDescription("dawn", layoutOf(score), score);
    }

    Score score;
};

TEST_F(ThePageWords, DescribeTheSheet) {
    note(0, 0, 67, 10);
    note(2, 190, 60, 10); // column 190 is in bar 48
    EXPECT_EQ(description(), "The score of dawn: two channels over 48 bars, notes from 5C to 5G.");
}

TEST_F(ThePageWords, NamePercussionAndCountInTheSingular) {
    note(0, 0, 67, 10);
    note(8, 3, 60, 128);
    EXPECT_EQ(description(),
              "The score of dawn: one channel and percussion over one bar, notes from 5C to 5C.");
}

TEST_F(ThePageWords, OfAnEmptyScoreNameNoNotes) {
    EXPECT_EQ(description(), "The score of dawn: no channels over one bar.");
}

TEST_F(ThePageWords, ListInstrumentsInTheOrderInWhichTheyComeIn) {
    note(1, 0, 60, 46);
    note(1, 4, 60, 10);
    note(1, 8, 60, 46);
    EXPECT_EQ(
        instrumentsMarkup(score),
        "<li><span class=\"chip c1\" aria-hidden=\"true\">2</span><span class=\"quiet\">Channel "
        "2: </span>Orchestral Harp, Music Box</li>\n");
}

TEST_F(ThePageWords, NamePercussionSoundsAndUnknownInstruments) {
    note(8, 0, 60, 128);
    note(12, 0, 60, 999);
    const std::string list = instrumentsMarkup(score);
    EXPECT_NE(list.find("Percussion Channel 1: </span>Acoustic Bass Drum<"), std::string::npos);
    EXPECT_NE(list.find("Percussion Channel 4: </span>Instrument 999<"), std::string::npos);
}

TEST_F(ThePageWords, CallARowOfHeldCellsSilent) {
    score.NoteArray.write(0, 0, 1060);
    EXPECT_NE(instrumentsMarkup(score).find("Channel 1: </span>silent<"), std::string::npos);
}

} // namespace
} // namespace velorin::convert

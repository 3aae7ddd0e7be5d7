// The sheet of a page: which columns and lines it has, and where notes and beats are.
#include "convert/page/SheetDrawing.h"

#include "model/Score.h"

#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

struct TheSheet : testing::Test {
    void put(int row, int column, int cell) {
        score.NoteArray.write(row, column, static_cast<std::int16_t>(cell));
    }
    void note(int row, int column, int pitch, int columns) {
        put(row, column, pitch);
        for (int i = 1; i < columns; ++i)
            put(row, column + i, 1000 + pitch);
    }
    [[nodiscard]] std::string tiles() const { return tilesDrawing(layoutOf(score), score); }
    [[nodiscard]] bool has(const std::string& text) const {
        return tiles().find(text) != std::string::npos;
    }

    Score score;
};

TEST_F(TheSheet, HasTwoLinesAboveTheHighestNoteAndTwoBelowTheLowest) {
    note(0, 0, 60, 1);
    note(7, 20, 72, 3);
    const SheetLayout layout = layoutOf(score);
    EXPECT_EQ(layout.columns, 23);
    EXPECT_EQ(layout.topPitch, 58);
    EXPECT_EQ(layout.lines, 17);
    EXPECT_EQ(layout.stripLines, 0);
}

TEST_F(TheSheet, EndsAtTheFirstAndAtTheLastPitch) {
    note(0, 1000, 0, 1);
    note(1, 0, 127, 1);
    const SheetLayout layout = layoutOf(score);
    EXPECT_EQ(layout.columns, 1001);
    EXPECT_EQ(layout.topPitch, 0);
    EXPECT_EQ(layout.lines, 128);
}

TEST_F(TheSheet, OfAnEmptyScoreHasOneColumn) {
    EXPECT_EQ(layoutOf(score).columns, 1);
    EXPECT_EQ(layoutOf(score).lines, 12);
}

TEST_F(TheSheet, ShowsNotesByColumnLineAndLength) {
    note(0, 5, 60, 3); // on line 2 of the sheet
    note(0, 8, 61, 1);
    EXPECT_TRUE(has("<g class=\"c0\"><defs><path id=\"n0\" d=\"M5 2h3M8 3h1\"/></defs>"
                    "<use class=\"b\" href=\"#n0\"/>"));
}

TEST_F(TheSheet, BreaksANoteAfterTwelveBarsAndGoesOnWithItsBar) {
    note(3, 46, 60, 4);
    const std::string drawn = tiles();
    const std::size_t second = drawn.find("<div class=\"line\">", 1);
    ASSERT_NE(second, std::string::npos);
    EXPECT_NE(drawn.substr(0, second).find("d=\"M46 2h2\""), std::string::npos);
    EXPECT_NE(drawn.substr(second).find("d=\"M-1 2h3\""), std::string::npos); // columns 48 and 49
    EXPECT_NE(drawn.substr(second).find("<b>49</b>"), std::string::npos);
}

TEST_F(TheSheet, RingsTheNotesWithAChordMark) {
    note(0, 4, 60, 1);
    note(0, 5, 61, 1);
    score.PolyArray.write(1, 6, 1); // the mark of column 5
    EXPECT_TRUE(has("d=\"M5 3h0\"/></defs><use class=\"k\""));
}

TEST_F(TheSheet, ShowsTheEdgeOfARingInTheTileBeforeItsNote) {
    note(0, 0, 60, 1);
    note(0, 48, 60, 1);
    score.PolyArray.write(1, 49, 1);
    EXPECT_TRUE(has("d=\"M48 2h0\""));
    EXPECT_TRUE(has("d=\"M0 2h0\""));
}

TEST_F(TheSheet, HasRowZeroOnTop) {
    note(0, 0, 60, 1);
    note(7, 0, 60, 1);
    const std::string drawn = tiles();
    EXPECT_LT(drawn.find("class=\"c7\""), drawn.find("class=\"c0\""));
}

TEST_F(TheSheet, HasPercussionInAStripOfThreeLinesAboveTheNotes) {
    note(0, 0, 60, 1);
    put(8, 2, 57);
    put(12, 3, 58);
    const SheetLayout layout = layoutOf(score);
    EXPECT_EQ(layout.stripLines, 3);
    EXPECT_TRUE(has("d=\"M2 0h1\""));
    EXPECT_TRUE(has("d=\"M3 1h1\""));
    EXPECT_TRUE(has("d=\"M0 5h1\"")); // three lines of percussion, two of margin
    EXPECT_NE(namesDrawing(layout).find(">Drums</text>"), std::string::npos);
}

TEST_F(TheSheet, PutsBeatsBelowTheStripOnItsLastLine) {
    put(8, 0, 10);
    put(8, 1, 100);
    EXPECT_EQ(layoutOf(score).stripLines, 12);
    EXPECT_TRUE(has("d=\"M0 0h1M1 11h1\""));
}

TEST_F(TheSheet, NamesItsLines) {
    note(0, 0, 67, 1);
    const std::string names = namesDrawing(layoutOf(score));
    EXPECT_NE(names.find("<text x=\"27\" y=\"31\">5D</text>"), std::string::npos); // two above 5C
    EXPECT_NE(names.find("<text x=\"27\" y=\"55\">5C</text>"), std::string::npos);
}

TEST_F(TheSheet, HasAsManyLinesOfPercussionAsItsBeatsNeed) {
    put(8, 0, 57);
    put(9, 0, 61);
    EXPECT_EQ(layoutOf(score).stripLines, 5);
}

TEST_F(TheSheet, HasGreyBandsForSharpsAndABarLineEveryFourColumns) {
    note(0, 0, 60, 1); // lines of 12 px: 5A, 5G#, 5G, 5F#, 5F
    const std::string names = namesDrawing(layoutOf(score));
    EXPECT_NE(names.find("<svg class=\"names\" width=\"30\" height=\"82\""), std::string::npos)
        << "a ruler of 22 px and five lines";
    EXPECT_NE(names.find("fill=\"#e0e0e0\" d=\"M0 12h576v12H0M0 36h576v12H0\""), std::string::npos);
    EXPECT_NE(names.find("d=\"M0 0h1v60h-1M48 0h1v60h-1M96 0h1"), std::string::npos);
    EXPECT_NE(names.find(">5F</text></g>"), std::string::npos) << "no name below the last line";
}

} // namespace
} // namespace velorin::convert

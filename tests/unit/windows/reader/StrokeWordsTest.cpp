// What a press did is found in the score, not in the press.
#include "windows/reader/StrokeWords.h"

#include "model/Score.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr int gSharp4 = 71, c5 = 67;
constexpr int acousticSnare = 131;

struct StrokeWordsTest : testing::Test {
    StrokeWordsTest() { before.ClearNoteArrays(); }

    Score before;

    static void note(Score& score, int row, int column, int pitch, int columns,
                     int instrument = 24) {
        for (int c = column; c < column + columns; ++c) {
            const int cell = c == column ? pitch : heldCell(pitch);
            score.NoteArray.write(row, c, static_cast<std::int16_t>(cell));
            score.InstrumentArray.write(row, c, static_cast<std::int16_t>(instrument));
        }
    }

    [[nodiscard]] std::string words(const Score& after, int column = 0,
                                    Tableau where = Tableau::music) const {
        return strokeWords(before, after, {where, column, gSharp4});
    }
};

} // namespace

TEST_F(StrokeWordsTest, DrawnNote) {
    Score after = before;
    note(after, 0, 4, gSharp4, 4);
    EXPECT_EQ(words(after, 4), "Note of 4 columns drawn, G sharp 4, channel 1.");
}

TEST_F(StrokeWordsTest, NoteDrawnInTheMiddleOfAnother) {
    note(before, 0, 0, c5, 8);
    Score after = before;
    note(after, 0, 3, gSharp4, 1);
    after.NoteArray.write(0, 4, c5);
    EXPECT_EQ(words(after, 3), "Note of 1 column drawn, G sharp 4, channel 1. Drawn over C 5.");
}

TEST_F(StrokeWordsTest, SameNoteAgainChangesNothing) {
    note(before, 0, 4, gSharp4, 4);
    Score after = before;
    note(after, 0, 4, gSharp4, 4);
    EXPECT_EQ(words(after, 4), "");
}

TEST_F(StrokeWordsTest, SameNoteWithAnotherInstrumentIsDrawn) {
    note(before, 0, 4, gSharp4, 1);
    Score after = before;
    note(after, 0, 4, gSharp4, 1, 40);
    EXPECT_EQ(words(after, 4), "Note of 1 column drawn, G sharp 4, channel 1.");
}

TEST_F(StrokeWordsTest, ErasedNote) {
    note(before, 1, 4, gSharp4, 2);
    Score after = before;
    after.NoteArray.fill(emptyCell);
    after.InstrumentArray.fill(0);
    EXPECT_EQ(words(after, 5), "Note of 2 columns erased, G sharp 4, channel 2.");
}

TEST_F(StrokeWordsTest, SeveralErasedNotesAreCounted) {
    note(before, 0, 4, gSharp4, 2);
    note(before, 0, 6, gSharp4, 2);
    Score after = before;
    after.ClearNoteArrays();
    EXPECT_EQ(words(after, 5), "2 notes erased.");
}

TEST_F(StrokeWordsTest, BeatHasItsDrum) {
    Score after = before;
    note(after, 8, 10, 56, 1, acousticSnare);
    EXPECT_EQ(words(after, 10, Tableau::strip),
              "Beat drawn, Acoustic Snare, percussion channel 1.");
}

TEST_F(StrokeWordsTest, ChordMarksAreSetAndCleared) {
    Score after = before;
    after.PolyArray.write(2, 17, 1);
    EXPECT_EQ(words(after, 16, Tableau::lanes), "Chord mark set, channel 2, column 17.");
    after.PolyArray.write(2, 18, 1);
    EXPECT_EQ(words(after, 16, Tableau::lanes), "2 chord marks set, channel 2, columns 17 to 18.");
    const Score cleared = before;
    before = after;
    EXPECT_EQ(words(cleared, 16, Tableau::lanes),
              "2 chord marks cleared, channel 2, columns 17 to 18.");
}

TEST_F(StrokeWordsTest, MarksOfSeveralLanesNameNoChannel) {
    Score after = before;
    after.PolyArray.write(2, 17, 1);
    after.PolyArray.write(3, 17, 1);
    EXPECT_EQ(words(after, 16, Tableau::lanes), "2 chord marks set, column 17.");
}

TEST_F(StrokeWordsTest, SelectionIsSaidAndTheMarkerThatMovesWithItIsNot) {
    Score after = before;
    after.StartColumn = after.SelectStart = 4;
    after.SelectEnd = 11;
    EXPECT_EQ(words(after, 4), "Columns 5 to 12 selected.");
    after.SelectEnd = 4;
    EXPECT_EQ(words(after, 4), "Column 5 selected.");
}

TEST_F(StrokeWordsTest, DroppedSelection) {
    before.SelectStart = 4;
    before.SelectEnd = 11;
    Score after = before;
    after.dropSelection();
    EXPECT_EQ(words(after), "Nothing is selected any more.");
}

TEST_F(StrokeWordsTest, Marker) {
    Score after = before;
    after.StartColumn = 8;
    EXPECT_EQ(words(after, 8), "Marker at column 9.");
}

TEST_F(StrokeWordsTest, NothingHappened) {
    EXPECT_EQ(words(before), "");
}

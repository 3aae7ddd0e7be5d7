// What the pen meets, in words.
#include "windows/reader/PlaceWords.h"

#include "session/Session.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr int d5 = 65, e5 = 63, g5 = 60;
constexpr int musicBoxInstrument = 10;
constexpr int snareSound = 131;
constexpr int stripLines = 3;

struct PlaceWordsTest : testing::Test {
    scripted::ScriptedPlatform host;
    Session session{host.platform};
    Studio& studio = session.studio;

    void note(int row, int column, int pitch, int columns, int instrument = musicBoxInstrument) {
        for (int c = column; c < column + columns; ++c) {
            const int cell = c == column ? pitch : heldCell(pitch);
            studio.score.NoteArray.write(row, c, static_cast<std::int16_t>(cell));
            studio.score.InstrumentArray.write(row, c, static_cast<std::int16_t>(instrument));
        }
    }

    [[nodiscard]] std::string said(const Spot& spot) const {
        return placeWords(spot, contentOf(studio, spot, stripLines));
    }
    [[nodiscard]] std::string moved(const Spot& from, const Spot& to) const {
        return movedWords(from, to, contentOf(studio, to, stripLines));
    }
};

} // namespace

TEST_F(PlaceWordsTest, EmptyCellHasItsNoteItsColumnAndItsBar) {
    EXPECT_EQ(said({Tableau::music, 24, d5}), "D 5, column 25, bar 7. Empty.");
}

TEST_F(PlaceWordsTest, SharpsAreSpoken) {
    EXPECT_EQ(spokenNote(66), "C sharp 5");
    EXPECT_EQ(spokenNote(127), "C 0");
    EXPECT_EQ(spokenNote(0), "G 10");
    EXPECT_EQ(spokenNote(128), "");
    EXPECT_EQ(spokenNote(-1), "");
}

TEST_F(PlaceWordsTest, NoteHasItsLengthItsChannelAndItsInstrument) {
    note(0, 0, g5, 8);
    EXPECT_EQ(said({Tableau::music, 0, g5}),
              "G 5, column 1, bar 1. Note of 8 columns, channel 1, Music Box.");
}

TEST_F(PlaceWordsTest, NoteOfOneColumnIsInTheSingular) {
    note(0, 0, g5, 1);
    EXPECT_EQ(said({Tableau::music, 0, g5}),
              "G 5, column 1, bar 1. Note of 1 column, channel 1, Music Box.");
}

TEST_F(PlaceWordsTest, NoteWithAChordMarkIsAChord) {
    note(0, 0, g5, 1);
    studio.score.PolyArray.write(1, 1, 1);
    EXPECT_EQ(said({Tableau::music, 0, g5}),
              "G 5, column 1, bar 1. Note of 1 column, channel 1, Music Box, chord.");
}

TEST_F(PlaceWordsTest, InsideANoteIsAHeldNote) {
    note(0, 12, e5, 8);
    EXPECT_EQ(said({Tableau::music, 16, e5}), "E 5, column 17, bar 5. Held note, channel 1.");
}

TEST_F(PlaceWordsTest, SeveralNotesBeginWithThoseOfTheCurrentRow) {
    for (int row = 0; row < 4; ++row)
        studio.view.RowOpen[row] = flagSet;
    note(0, 0, g5, 1);
    note(2, 0, g5, 2);
    note(3, 0, g5, 4);
    studio.score.CurrentRow = 2;
    EXPECT_EQ(said({Tableau::music, 0, g5}),
              "G 5, column 1, bar 1. Note of 2 columns, channel 3, Music Box. Also channel 1, "
              "channel 4.");
}

TEST_F(PlaceWordsTest, NoteOnAnotherLineIsNotThere) {
    note(0, 0, g5, 1);
    EXPECT_EQ(said({Tableau::music, 0, e5}), "E 5, column 1, bar 1. Empty.");
}

TEST_F(PlaceWordsTest, HiddenRowAndRowNeverChosenAreNotThere) {
    note(0, 0, g5, 1);
    note(5, 0, e5, 1);
    studio.setup.values.options.rows[0].hidden = true;
    EXPECT_EQ(said({Tableau::music, 0, g5}), "G 5, column 1, bar 1. Empty.");
    EXPECT_EQ(said({Tableau::music, 0, e5}), "E 5, column 1, bar 1. Empty.");
}

TEST_F(PlaceWordsTest, ColumnAfterTheSongIsEmptyAndAfterTheScoreIsNothing) {
    EXPECT_EQ(said({Tableau::music, 999, g5}), "G 5, column 1000, bar 250. Empty.");
    EXPECT_EQ(said({Tableau::music, 1000, g5}), "G 5, column 1001, bar 251. Outside the score.");
    EXPECT_EQ(said({Tableau::music, 0, 128}), "no note, column 1, bar 1. Outside the score.");
}

TEST_F(PlaceWordsTest, BeatHasItsDrum) {
    note(8, 10, 56, 1, snareSound);
    EXPECT_EQ(said({Tableau::strip, 10, 1}), "Drums, line 2, column 11. Beat, Acoustic Snare.");
    EXPECT_EQ(said({Tableau::strip, 10, 0}), "Drums, line 1, column 11. Empty.");
}

TEST_F(PlaceWordsTest, LongBeatAndWhatFollowsInIt) {
    note(10, 4, 55, 3, snareSound);
    EXPECT_EQ(said({Tableau::strip, 4, 0}),
              "Drums, line 1, column 5. Beat of 3 columns, Acoustic Snare.");
    EXPECT_EQ(said({Tableau::strip, 6, 0}), "Drums, line 1, column 7. Held beat, Acoustic Snare.");
}

TEST_F(PlaceWordsTest, BeatBelowTheStripIsOnItsLastLine) {
    note(8, 0, 80, 1, snareSound);
    note(10, 0, 57, 1, 128);
    EXPECT_EQ(said({Tableau::strip, 0, 2}),
              "Drums, line 3, column 1. Beat, Acoustic Snare. Also Acoustic Bass Drum.");
}

TEST_F(PlaceWordsTest, RowThatTheStripNeverDrawsIsNotThere) {
    note(12, 0, 55, 1, snareSound);
    EXPECT_EQ(said({Tableau::strip, 0, 0}), "Drums, line 1, column 1. Empty.");
}

TEST_F(PlaceWordsTest, LaneIsMarkedOrNot) {
    studio.score.PolyArray.write(2, 17, 1);
    EXPECT_EQ(said({Tableau::lanes, 16, 1}), "Chords, channel 2, column 17. Marked.");
    EXPECT_EQ(said({Tableau::lanes, 15, 1}), "Chords, channel 2, column 16. Not marked.");
}

TEST_F(PlaceWordsTest, StepSaysOnlyWhatHasChanged) {
    note(0, 16, d5, 2);
    EXPECT_EQ(moved({Tableau::music, 16, d5}, {Tableau::music, 17, d5}),
              "column 18. Held note, channel 1.");
    EXPECT_EQ(moved({Tableau::music, 16, 64}, {Tableau::music, 16, d5}),
              "D 5. Note of 2 columns, channel 1, Music Box.");
}

TEST_F(PlaceWordsTest, StepIntoAnotherBarSaysTheBar) {
    EXPECT_EQ(moved({Tableau::music, 19, d5}, {Tableau::music, 20, d5}),
              "column 21, bar 6. Empty.");
}

TEST_F(PlaceWordsTest, StepsInTheStripAndInTheLanesHaveNoBar) {
    EXPECT_EQ(moved({Tableau::strip, 19, 0}, {Tableau::strip, 20, 0}), "column 21. Empty.");
    EXPECT_EQ(moved({Tableau::strip, 19, 0}, {Tableau::strip, 19, 1}), "line 2. Empty.");
    EXPECT_EQ(moved({Tableau::lanes, 3, 0}, {Tableau::lanes, 3, 1}), "channel 2. Not marked.");
}

TEST_F(PlaceWordsTest, OtherTableauAndTheSamePlaceAgainAreSaidInFull) {
    EXPECT_EQ(moved({Tableau::lanes, 24, d5}, {Tableau::music, 24, d5}),
              "D 5, column 25, bar 7. Empty.");
    EXPECT_EQ(moved({Tableau::music, 24, d5}, {Tableau::music, 24, d5}),
              "D 5, column 25, bar 7. Empty.");
}

// The line that says what changed.
#include "history/Change.h"

#include "history/NoteDifference.h"
#include "model/Score.h"
#include "support/GridText.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

using namespace velorin;

namespace {

using Edit = std::function<void(Score&)>;

void note(Score& score, int row, int column, int pitch = 60, int columns = 1, int instrument = 24) {
    scripted::putNote(score, row, column, pitch, columns, static_cast<std::int16_t>(instrument));
}

void rest(Score& score, int row, int first, int last) {
    for (int column = first; column <= last; ++column) {
        score.NoteArray.write(row, column, emptyCell);
        score.InstrumentArray.write(row, column, 0);
    }
}

Change changeBy(const Edit& before, const Edit& edit, const ChangeNames& names = {}) {
    auto one = std::make_unique<Score>();
    before(*one);
    auto other = std::make_unique<Score>(*one);
    edit(*other);
    return describeChange(*one, *other, names);
}

struct Case {
    const char* name;
    Edit before;
    Edit edit;
    const char* kind;
    const char* text;
};

void nothing(Score&) {}

void tune(Score& score) {
    note(score, 0, 0, 60, 2);
    note(score, 0, 4, 62);
    note(score, 1, 4, 64, 3);
    note(score, 1, 9, 65);
}

std::vector<Case> drawnNotes() {
    return {Case{"OneNote", nothing, [](Score& s) { note(s, 1, 20); }, "notes",
                 "Note drawn on channel 2, column 21"},
            Case{"SeveralNotes", nothing,
                 [](Score& s) {
                     note(s, 1, 2);
                     note(s, 1, 5);
                     note(s, 1, 9);
                 },
                 "notes", "3 notes drawn on channel 2"},
            Case{"LongerNote", tune, [](Score& s) { note(s, 1, 9, 65, 4); }, "notes",
                 "Note lengthened on channel 2, column 10"},
            Case{"ShorterNote", tune, [](Score& s) { rest(s, 1, 5, 6); }, "notes",
                 "Note shortened on channel 2, column 5"},
            Case{"MovedNote", tune,
                 [](Score& s) {
                     rest(s, 1, 9, 9);
                     note(s, 1, 12, 65);
                 },
                 "notes", "Note moved on channel 2, column 13"},
            Case{"OneNoteInPlaceOfTwo", tune, [](Score& s) { note(s, 1, 4, 70, 6); }, "notes",
                 "2 notes changed on channel 2"},
            Case{"OtherPitch", tune, [](Score& s) { note(s, 1, 9, 70); }, "notes",
                 "Note moved on channel 2, column 10"}};
}

std::vector<Case> erasedNotesAndBeats() {
    return {Case{"ErasedNote", tune, [](Score& s) { rest(s, 1, 9, 9); }, "erase",
                 "Note erased on channel 2, column 10"},
            Case{"ErasedNotes", tune, [](Score& s) { rest(s, 1, 0, 20); }, "erase",
                 "2 notes erased on channel 2"},
            Case{"OneBeat", nothing, [](Score& s) { note(s, 8, 3, 55, 1, 130); }, "beats",
                 "Beat drawn on drums 1, column 4"},
            Case{"Beats", nothing,
                 [](Score& s) {
                     for (int column = 0; column < 16; column += 4)
                         note(s, 9, column, 55, 1, 130);
                 },
                 "beats", "4 beats drawn on drums R"},
            Case{"BeatErased", [](Score& s) { note(s, 12, 3, 55, 1, 130); },
                 [](Score& s) { rest(s, 12, 3, 3); }, "erase", "Beat erased on drums 4, column 4"}};
}

std::vector<Case> values() {
    return {Case{"MarkSet", tune, [](Score& s) { s.PolyArray.write(1, 33, 1); }, "chords",
                 "Chord mark set at column 33"},
            Case{"MarkRemoved", [](Score& s) { s.PolyArray.write(2, 8, 1); },
                 [](Score& s) { s.PolyArray.write(2, 8, 0); }, "erase",
                 "Chord mark removed at column 8"},
            Case{"Marks", tune,
                 [](Score& s) {
                     for (int entry = 5; entry < 9; ++entry)
                         s.PolyArray.write(3, entry, 1);
                 },
                 "chords", "4 chord marks set"},
            Case{"Tempo", tune, [](Score& s) { s.Tempo = 66; }, "tempo", "Tempo 66, was 100"},
            Case{"RowInstrument", tune, [](Score& s) { s.RowInstrument[1] = 46; }, "instrument",
                 "Channel 2 plays 46 Orchestral Harp"},
            Case{"DrumSound", tune, [](Score& s) { s.RowInstrument[10] = 130; }, "instrument",
                 "Drums 2 plays 130 Side Stick"}};
}

std::vector<Case> blocks() {
    return {Case{"Pasted", tune,
                 [](Score& s) {
                     note(s, 0, 20, 60, 2);
                     note(s, 1, 24, 64, 3);
                 },
                 "block", "7 columns pasted at column 21"},
            Case{"Chord", tune,
                 [](Score& s) {
                     note(s, 0, 20, 60, 2);
                     note(s, 1, 20, 63, 2);
                     note(s, 2, 20, 67, 2);
                 },
                 "notes", "3 notes drawn in column 21"},
            Case{"Inserted", tune,
                 [](Score& s) {
                     s.ClearNoteArrays();
                     note(s, 0, 0, 60, 2);
                     note(s, 0, 7, 62);
                     note(s, 1, 7, 64, 3);
                     note(s, 1, 12, 65);
                 },
                 "block", "3 columns inserted at column 5"},
            Case{"Cut", tune,
                 [](Score& s) {
                     s.ClearNoteArrays();
                     note(s, 0, 0, 60, 2);
                     note(s, 0, 3, 62);
                     note(s, 1, 3, 64, 3);
                     note(s, 1, 8, 65);
                 },
                 "block", "1 column cut at column 4"},
            Case{"CutOfOneRow",
                 [](Score& s) {
                     note(s, 1, 2, 64);
                     note(s, 1, 6, 65);
                 },
                 [](Score& s) {
                     s.ClearNoteArrays();
                     note(s, 1, 2, 65);
                 },
                 "block", "4 columns cut at column 3"},
            Case{"ErasedColumns", tune,
                 [](Score& s) {
                     rest(s, 0, 4, 9);
                     rest(s, 1, 4, 9);
                 },
                 "erase", "6 columns erased from column 5"},
            Case{"Cleared", tune, [](Score& s) { s.ClearNoteArrays(); }, "clear", "Cleared"}};
}

class ChangeTest : public testing::TestWithParam<Case> {};

} // namespace

TEST_P(ChangeTest, IsDescribed) {
    const Change change = changeBy(GetParam().before, GetParam().edit);
    EXPECT_EQ(change.text, GetParam().text);
    EXPECT_EQ(change.kind, GetParam().kind);
}

constexpr auto nameOf = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(DrawnNotes, ChangeTest, testing::ValuesIn(drawnNotes()), nameOf);
INSTANTIATE_TEST_SUITE_P(ErasedNotesAndBeats, ChangeTest, testing::ValuesIn(erasedNotesAndBeats()),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Values, ChangeTest, testing::ValuesIn(values()), nameOf);
INSTANTIATE_TEST_SUITE_P(Blocks, ChangeTest, testing::ValuesIn(blocks()), nameOf);

TEST(ShiftTest, NoteInARowThatWasEmptyIsNotInsertedWithTheOthers) {
    auto before = std::make_unique<Score>();
    tune(*before);
    auto after = std::make_unique<Score>();
    note(*after, 0, 4, 60, 2);
    note(*after, 0, 8, 62);
    note(*after, 1, 8, 64, 3);
    note(*after, 1, 13, 65);
    ASSERT_TRUE(findShift(*before, *after));
    EXPECT_EQ(findShift(*before, *after)->columns, 4);
    note(*after, 2, 3, 60);
    EXPECT_FALSE(findShift(*before, *after)) << "nothing of row 2 has moved";
}

TEST(ChangeNamesTest, OpenedScoreIsNamedWithoutItsFolder) {
    const Change change = changeBy(tune, nothing, {"", "", "C:\\Songs\\harbour-lights.sng"});
    EXPECT_EQ(change.text, "Opened harbour-lights.sng");
    EXPECT_EQ(change.kind, "open");
}

TEST(ChangeNamesTest, ClearedScoreOfAFileSaysThatItIsKept) {
    const auto clear = [](Score& score) { score.ClearNoteArrays(); };
    const Change change = changeBy(tune, clear, {"@/Songs/mill-pond-waltz.sng", "", {}});
    EXPECT_EQ(change.text, "Cleared; mill-pond-waltz was kept");
    EXPECT_EQ(change.kind, "clear");
}

TEST(ChangeNamesTest, LastNoteOfASheetWithoutANameIsErasedAndNotCleared) {
    const auto one = [](Score& score) { note(score, 0, 3); };
    const Change change = changeBy(one, [](Score& score) { score.ClearNoteArrays(); });
    EXPECT_EQ(change.text, "Note erased on channel 1, column 4");
}

TEST(ChangedPlaceTest, IsTheFirstCellThatDiffers) {
    auto one = std::make_unique<Score>();
    tune(*one);
    auto other = std::make_unique<Score>(*one);
    note(*other, 1, 9, 70, 3);
    const ChangedPlace place = changedPlace(*one, *other);
    EXPECT_EQ(place.firstColumn, 9);
    EXPECT_EQ(place.lastColumn, 11);
    EXPECT_EQ(place.row, 1);
    EXPECT_EQ(place.pitch, 70);
    EXPECT_EQ(changedRows(*one, *other), std::vector<int>{1});
    EXPECT_EQ(changedPlace(*one, *one).firstColumn, -1);
}

TEST(ChangedPlaceTest, MayBeginInTheFirstColumn) {
    const auto one = std::make_unique<Score>();
    const auto other = std::make_unique<Score>(*one);
    note(*other, 2, 0, 60);
    note(*other, 1, 5, 70);
    const ChangedPlace place = changedPlace(*one, *other);
    EXPECT_EQ(place.firstColumn, 0);
    EXPECT_EQ(place.lastColumn, 5);
    EXPECT_EQ(place.row, 2);
}

TEST(ChangedRowsTest, AreThoseThatDifferInAnyColumn) {
    const auto one = std::make_unique<Score>();
    for (const int column : {0, 1, lastGridColumn}) {
        const auto other = std::make_unique<Score>(*one);
        other->NoteArray.write(3, column, 60);
        EXPECT_EQ(changedRows(*one, *other), std::vector<int>{3}) << column;
    }
}

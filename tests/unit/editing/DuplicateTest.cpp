// Duplicate: the pattern, the places of its copies, and the numbers that make none.
#include "EditingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// The columns in which a note of that pitch starts, "0 12 24".
std::string startsOf(const EditingStage& stage, int row, int pitch) {
    std::string text;
    for (int column = 0; column < scoreColumns; ++column) {
        if (stage.score.NoteArray.at(row, column) != pitch)
            continue;
        if (!text.empty())
            text.push_back(' ');
        text.append(std::to_string(column));
    }
    return text;
}

TEST(Duplicate, PastesACopyAtEachMultipleOfRepeatUpToNotes) {
    EditingStage stage;
    stage.note(0, 0, 60, 1, 24);
    stage.note(8, 2, 57, 1, 130);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "0 12 24 36 48 60");
    EXPECT_EQ(startsOf(stage, 8, 57), "2 14 26 38 50 62");
    EXPECT_EQ(stage.instruments(0, 59, 61), "0 24 0");
    EXPECT_EQ(stage.instruments(8, 61, 63), "0 130 0");
    EXPECT_EQ(stage.score.StartColumn, 0);
    EXPECT_EQ(stage.score.SelectStart, -1);
    EXPECT_EQ(stage.score.SelectEnd, -1);
    EXPECT_TRUE(stage.texts.hints.empty());
}

// Beats 12: the song is cut to columns 0..12 first, so columns 13..16 of the pattern are rests.
// They are pasted too.
TEST(Duplicate, ThePatternIsAtLeastSeventeenColumnsLong) {
    EditingStage stage;
    stage.note(0, 12, 60);
    stage.note(0, 13, 61);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(stage.edits.clip.ClipLength, 16);
    EXPECT_EQ(startsOf(stage, 0, 61), "") << "behind the beats nothing is kept";
    EXPECT_EQ(startsOf(stage, 0, 60), "72")
        << "the next copy's column 0 overwrites column 12 of the one before";
}

TEST(Duplicate, CopiesThatDoNotOverlapAreSideBySide) {
    EditingStage stage;
    stage.texts.beats = std::string("31");
    stage.texts.repeat = std::string("32");
    stage.note(0, 31, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(stage.edits.clip.ClipLength, 31);
    EXPECT_EQ(startsOf(stage, 0, 60), "31 63");
}

TEST(Duplicate, OfThePercussionAloneLeavesTheInstrumentsOnceAtTheStart) {
    EditingStage stage;
    stage.note(0, 0, 60);
    stage.note(0, 12, 61, 3);
    stage.note(8, 0, 57);

    stage.duplicate.CopyNotes(8, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "0");
    EXPECT_EQ(stage.notes(0, 11, 14), ". 61 . .");
    EXPECT_EQ(startsOf(stage, 8, 57), "0 12 24 36 48 60");
}

TEST(Duplicate, OfNoRowsStillCutsTheSongToThePattern) {
    EditingStage stage;
    stage.note(0, 0, 60);
    stage.note(0, 40, 61);

    stage.duplicate.CopyNotes(8, 7);

    EXPECT_EQ(startsOf(stage, 0, 60), "0");
    EXPECT_EQ(startsOf(stage, 0, 61), "");
    EXPECT_EQ(stage.score.StartColumn, 0);
}

TEST(Duplicate, AHiddenRowIsEmptiedAndNotWritten) {
    EditingStage stage;
    stage.note(1, 0, 60);
    stage.hide(1);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 1, 60), "");
    EXPECT_EQ(stage.notes(1, 0, 2), ". . .");
}

TEST(Duplicate, AHeldCellAtTheStartOfTheSongStartsInEveryCopy) {
    EditingStage stage;
    stage.score.NoteArray.write(0, 0, 1060);
    stage.score.NoteArray.write(0, 1, 1060);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(stage.notes(0, 0, 2), "60 1060 .");
    EXPECT_EQ(stage.notes(0, 60, 62), "60 1060 .");
}

// Notes 4, Repeat 4: the second copy's columns 0..16 cover 4..20, and the first copy's note at
// columns 2..5 loses its rest to it.
TEST(Duplicate, ACopyEndsTheNoteThatRunsIntoIt) {
    EditingStage stage;
    stage.texts.notes = std::string("4");
    stage.texts.repeat = std::string("4");
    stage.note(0, 2, 60, 4);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(stage.notes(0, 0, 10), ". . 60 1060 . . 60 1060 1060 1060 .");
}

TEST(Duplicate, ForgetsTheFileNameAndRedrawsAtTheEnd) {
    EditingStage stage;
    stage.score.CurrentFileName = "a.sng";

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(stage.score.CurrentFileName, "");
    const Lines asked = stage.asked();
    ASSERT_GE(asked.size(), 2U);
    EXPECT_EQ(asked[asked.size() - 2], "DrawNoteArray");
    EXPECT_EQ(asked.back(), "DrawBeatArray");
}

TEST(Duplicate, ARepeatOfZeroPastesTheFirstCopyAndShowsAHint) {
    EditingStage stage;
    stage.texts.repeat = std::string("0");
    stage.note(0, 3, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3");
    ASSERT_EQ(stage.texts.hints.size(), 1U);
    EXPECT_NE(stage.texts.hints[0].find("Repeat starts at 1"), std::string::npos);
}

TEST(Duplicate, ANumberThatLeavesItsRangeCountsAsZero) {
    EditingStage stage;
    stage.texts.repeat = std::string("32768");
    stage.note(0, 3, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3");
    EXPECT_EQ(stage.texts.hints.size(), 1U);

    stage.texts.repeat = std::string("1");
    stage.texts.notes = std::string("32768");

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3") << "a second copy would add column 4";
}

TEST(Duplicate, ANegativeRepeatPastesNoCopy) {
    EditingStage stage;
    stage.texts.repeat = std::string("-12");
    stage.note(0, 3, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3");
    EXPECT_TRUE(stage.texts.hints.empty());
}

TEST(Duplicate, NotesOfZeroPastesOneCopyAtTheStart) {
    EditingStage stage;
    stage.texts.notes = std::string("0");
    stage.note(0, 3, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3");
}

TEST(Duplicate, TheLargestNotesEndsAtTheEndOfTheGrid) {
    EditingStage stage;
    stage.texts.notes = std::string("32767");
    stage.texts.repeat = std::string("500");
    stage.note(0, 3, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "3 503");
    EXPECT_EQ(stage.notes(0, 999, 1000), ". .");
}

TEST(Duplicate, TheMarkerMovesAndStopsAfterTheLastCopy) {
    EditingStage stage;
    stage.score.StartColumn = 10;
    stage.texts.notes = std::string("30");

    stage.duplicate.DuplicateRepeat(0, 12);

    EXPECT_EQ(stage.score.StartColumn, 46) << "copies at 10, 22 and 34; the limit is 40";
}

// The limit would be 32768, so it is 0.
TEST(Duplicate, ALimitThatLeavesItsRangePastesNoCopy) {
    EditingStage stage;
    stage.score.StartColumn = 1;
    stage.texts.notes = std::string("32767");

    stage.duplicate.DuplicateRepeat(0, 12);

    EXPECT_EQ(stage.score.StartColumn, 1);
}

TEST(Duplicate, TheMarkerStopsWhereTheNextStepLeavesItsRange) {
    EditingStage stage;
    stage.texts.notes = std::string("32767");
    stage.texts.repeat = std::string("20000");

    stage.duplicate.DuplicateRepeat(0, 12);

    EXPECT_EQ(stage.score.StartColumn, 20000);
}

TEST(Duplicate, BeatsBelowZeroLeaveNothingOfTheSong) {
    EditingStage stage;
    stage.texts.beats = std::string("-3");
    stage.note(0, 0, 60);

    stage.duplicate.CopyNotes(0, 12);

    EXPECT_EQ(startsOf(stage, 0, 60), "");
    EXPECT_EQ(stage.notes(0, 0, 2), ". . .");
}

TEST(Duplicate, RowsOutsideTheScoreAreLeftOut) {
    EditingStage stage;
    stage.note(12, 0, 60);

    stage.duplicate.CopyNotes(-5, 99);

    EXPECT_EQ(startsOf(stage, 12, 60), "0 12 24 36 48 60");
}

} // namespace
} // namespace velorin

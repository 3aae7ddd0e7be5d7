// The notes that a press in a tableau sounds: its own, and those of the other rows in its column.
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct MouseNotes : testing::Test, PlaybackStage {};

// Pitch index 67 is key 60, hex 3C. The start chord adds 3, 7 and 12: hex 3F, 43 and 48.

TEST_F(MouseNotes, APressSoundsOnSoundRow) {
    sounding.SoundRow = 5;
    sounding.StartNoteBtnDn(67);
    EXPECT_EQ(midi(), (Lines{"0.000 95 3C 7F"}));
}

TEST_F(MouseNotes, ANoteOfNoRowIsSilent) {
    for (const int row : {-1, 13}) {
        sounding.StartNote(67, row);
        sounding.startKey(67, row);
        sounding.stopKey(67, row);
        sounding.SoundRow = static_cast<std::int16_t>(row);
        sounding.StartNoteBtnDn(67);
        sounding.StopNote(67);
        sounding.StopNoteBtnUp(67);
    }
    EXPECT_EQ(midi(), Lines());
}

// Index 127 is key 0. Key -129 times 256 does not fit 16 bits, and neither does index 40,000.
TEST_F(MouseNotes, ANoteWhoseKeyDoesNotFitIsSilent) {
    for (const int index : {127 + 129, 40'000, -40'000}) {
        sounding.StartNoteBtnDn(index);
        sounding.StopNote(index);
        sounding.StopNoteBtnUp(index);
    }
    EXPECT_EQ(midi(), Lines());
}

TEST_F(MouseNotes, APressFindsTheChordMarkOfTheScoreColumnUnderThePointer) {
    studio.view.FirstColumn = 10;
    studio.drag.MouseColumn = 4;
    studio.run.PlayColumn = 90;
    studio.score.PolyArray.write(1, 15, 1); // row 0, column 14
    sounding.StartNoteBtnDn(67);
    EXPECT_EQ(midi(),
              (Lines{"0.000 90 3C 6C", "0.000 90 3F 46", "0.000 90 43 46", "0.000 90 48 46"}));
}

TEST_F(MouseNotes, AReleaseOfAPlainNoteIsOneMessage) {
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(), (Lines{"0.000 80 3C 00"}));
}

TEST_F(MouseNotes, AReleaseIsTheFirstOfTheLastMessages) {
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(sounding.LastMessages[0], 0x003C80);
    EXPECT_EQ(sounding.LastMessages[1], 0);
}

TEST_F(MouseNotes, AReleaseOnAChordRowEndsTheWholeChord) {
    setup.options.rows[0].chord = true;
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(),
              (Lines{"0.000 80 3C 00", "0.000 80 3F 00", "0.000 80 43 00", "0.000 80 48 00"}));
}

TEST_F(MouseNotes, AReleaseLooksForTheMarkOneEntryBeforeTheColumn) {
    studio.view.FirstColumn = 10;
    studio.drag.MouseColumn = 4;
    studio.score.PolyArray.write(1, 15, 1); // the one that the press used
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(), (Lines{"0.000 80 3C 00"}));
    studio.score.PolyArray.write(1, 13, 1);
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi().size(), 4U);
}

TEST_F(MouseNotes, AReleaseInColumn0FindsNoMark) {
    studio.score.PolyArray.write(1, 0, 1);
    studio.score.PolyArray.write(1, 1, 1);
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(), (Lines{"0.000 80 3C 00"}));
}

TEST_F(MouseNotes, AReleaseOnAPercussionSoundOfAChordRowEndsAChordOnChannel12) {
    setup.options.rows[0].chord = true;
    sounding.ChangeInstrument(128, 0);
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(),
              (Lines{"0.000 8C 23 00", "0.000 8C 26 00", "0.000 8C 2A 00", "0.000 8C 2F 00"}));
}

TEST_F(MouseNotes, AReleaseOnRow9WithAMelodicSoundIsOneMessage) {
    sounding.SoundRow = 9;
    sounding.StopNoteBtnUp(67);
    EXPECT_EQ(midi(), (Lines{"0.000 89 3C 00"}));
}

struct PressedColumn : MouseNotes {
    PressedColumn() {
        studio.view.FirstColumn = 10;
        studio.drag.PressColumn = 2;
    }
};

TEST_F(PressedColumn, TheOtherUnhiddenRowsSoundWithTheirInstrumentAndVolume) {
    write(0, "67", 1, 12); // the current row
    write(1, "67", 30, 12);
    write(2, "60 =", 31, 11); // held in column 12
    write(3, "50", 32, 12);   // hidden
    write(8, "5", 130, 12);
    write(4, "67", 0, 11); // another column
    setup.options.rows[1].volume = "100";
    setup.options.rows[3].hidden = true;
    sounding.StartColumnNotes();
    EXPECT_EQ(midi(), (Lines{"0.000 B1 00 00", "0.000 B1 20 00", "0.000 C1 1E", "0.000 91 3C 64",
                             "0.000 B2 00 00", "0.000 B2 20 00", "0.000 C2 1F", "0.000 92 43 7F",
                             "0.000 99 25 7F"}));
    EXPECT_EQ(sounding.SoundRow, 8);
}

TEST_F(PressedColumn, EndsWithInstrumentAndFourNoteOffsForEachRow) {
    write(1, "67", 30, 12);
    write(8, "5", 130, 12);
    setup.options.rows[1].volume = "100";
    sounding.StopColumnNotes();
    EXPECT_EQ(midi(), (Lines{"0.000 B1 00 00", "0.000 B1 20 00", "0.000 C1 1E", "0.000 81 3C 00",
                             "0.000 81 3F 00", "0.000 81 43 00", "0.000 81 48 00", "0.000 8C 25 00",
                             "0.000 8C 28 00", "0.000 8C 2C 00", "0.000 8C 31 00"}));
    EXPECT_EQ(sounding.SoundRow, 8);
    EXPECT_EQ(sounding.Velocity, 127);
}

TEST_F(PressedColumn, TheTopKeyOfTheGridIsNotSounded) {
    write(1, "0", 0, 12);
    write(2, "0 =", 0, 11);
    sounding.StartColumnNotes();
    sounding.StopColumnNotes();
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(PressedColumn, OutsideTheGridThereIsNothingToSound) {
    studio.view.FirstColumn = 999;
    sounding.StartColumnNotes();
    studio.view.FirstColumn = -3;
    sounding.StartColumnNotes();
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(PressedColumn, AChordHereIsThatOfThePlayColumn) {
    write(1, "67", 0, 12);
    studio.score.PolyArray.write(2, 13, 1); // row 1, column 12
    studio.run.PlayColumn = 0;
    sounding.StartColumnNotes();
    EXPECT_EQ(midi().back(), "0.000 91 3C 7F");
    studio.run.PlayColumn = 12;
    sounding.StartColumnNotes();
    EXPECT_EQ(midi().back(), "0.000 91 48 46");
}

TEST_F(PressedColumn, ANoteThatHasNoKeyDoesNotKeepTheOtherRowsBack) {
    write(1, "300", 0, 12);
    write(2, "67", 0, 12);
    sounding.StartColumnNotes();
    EXPECT_EQ(midi().back(), "0.000 92 3C 7F");
}

} // namespace
} // namespace velorin

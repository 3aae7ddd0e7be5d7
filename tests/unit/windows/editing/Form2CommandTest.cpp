// The Editing Toolbar's buttons: the command that each of them runs.
#include "EditingToolbarStage.h"
#include "support/GridText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace velorin {
namespace {

class Form2CommandTest : public testing::Test, protected EditingToolbarStage {
protected:
    Score& score = studio.score;

    void note(int row, int column, int pitch) {
        scripted::putNote(score, row, column, pitch, 1, 0);
    }
    void select(int first, int last) {
        score.SelectStart = static_cast<std::int16_t>(first);
        score.SelectEnd = static_cast<std::int16_t>(last);
    }
    /// Row 2's first eight cells.
    [[nodiscard]] std::string notes() const { return scripted::gridText(score.NoteArray, 2, 0, 7); }
    /// Notes 60, 61, 62 and 63 in row 2, of which 61 and 62 are in the clipboard.
    void copyTwo() {
        for (int column = 0; column < 4; ++column)
            note(2, column, 60 + column);
        select(1, 2);
        session.edits.CopySelectedArea();
        score.dropSelection();
    }
    /// Pitch 60 is key 67.
    [[nodiscard]] bool hasSounded() const {
        return std::any_of(host.midi.log.begin(), host.midi.log.end(),
                           [](const auto& line) { return line.ends_with("92 43 7F"); });
    }
};

TEST_F(Form2CommandTest, ClearMakesANewScoreAndLeavesTheChordMarksAndTheSelection) {
    note(2, 3, 60);
    score.PolyArray.write(1, 1, 1);
    select(4, 5);
    score.CurrentFileName = "a.sng";
    studio.setup.setTrackHide(3, true);
    EXPECT_EQ(clicked(1), (Lines{"focusMusicBox", "DrawPolyTableau"}));
    EXPECT_EQ(notes(), ". . . . . . . .");
    EXPECT_EQ(score.PolyArray.read(1, 1), 1);
    EXPECT_EQ(score.SelectStart, 4);
    EXPECT_EQ(score.CurrentFileName, "");
    EXPECT_FALSE(studio.setup.TrackHide(3));
}

TEST_F(Form2CommandTest, OpenHidesTheToolbarsForItsLengthAndShowsThemAgain) {
    const std::string name = (host.folder.path() / "a.sng").string();
    std::ofstream(name).flush();
    host.dialogs.answers = {platform::FileDialogAnswer{name, 1}};
    form().show();
    std::vector<bool> shown;
    desk.onCall = [&] { shown.push_back(form().isVisible()); };
    EXPECT_EQ(clicked(2), (Lines{"DrawPolyTableau", "DrawPolyTableau"}));
    EXPECT_EQ(shown, (std::vector<bool>{false, false}));
    EXPECT_TRUE(form().isVisible());
    ASSERT_EQ(host.dialogs.log.size(), 1U);
    EXPECT_TRUE(host.dialogs.log[0].starts_with("open;Open Score File;"));
    EXPECT_TRUE(score.CurrentFileName.ends_with("a.sng"));
}

TEST_F(Form2CommandTest, SaveHidesTheToolbarsForItsLengthAndShowsThemAgain) {
    form().show();
    std::vector<bool> shown;
    desk.onCall = [&] { shown.push_back(form().isVisible()); };
    EXPECT_EQ(clicked(3), Lines{"leaveTopMost"});
    EXPECT_EQ(shown, std::vector<bool>{false});
    EXPECT_TRUE(form().isVisible());
    ASSERT_EQ(host.dialogs.log.size(), 1U);
    EXPECT_TRUE(host.dialogs.log[0].starts_with("save;Save music file;"));
}

TEST_F(Form2CommandTest, PlayPlaysTheSongAndStopEndsIt) {
    session.sounding.openDevice(0);
    note(2, 0, 60);
    note(2, 900, 60);
    bool played = false;
    host.time.plan(scripted::nanosecondsPerSecond, [&] {
        played =
            hasSounded() && studio.run.IsPlaying.isSet() && !studio.run.PlayingSelection.isSet();
        EXPECT_EQ(clicked(7), Lines{"enableTableaux"});
        EXPECT_EQ(studio.run.IsPlaying, flagClear);
    });
    form().Cmd2_Click(4);
    EXPECT_TRUE(played);
    EXPECT_LT(host.time.now(), 2 * scripted::nanosecondsPerSecond);
}

TEST_F(Form2CommandTest, ReturnBringsTheViewToTheFirstColumn) {
    studio.view.FirstColumn = 100;
    score.StartColumn = 110;
    EXPECT_EQ(clicked(8), Lines{"clearMusicBox"});
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(score.StartColumn, 0);
}

TEST_F(Form2CommandTest, CopyTakesTheSelectionAndLeavesTheScore) {
    copyTwo();
    select(0, 2);
    EXPECT_EQ(clicked(12), Lines{"focusMusicBox"});
    EXPECT_EQ(session.edits.clip.ClipLength, 2);
    EXPECT_EQ(score.SelectStart, -1);
    EXPECT_EQ(notes(), "60 61 62 63 . . . .");
}

TEST_F(Form2CommandTest, CutClosesTheGap) {
    copyTwo();
    select(0, 2);
    EXPECT_EQ(clicked(13), Lines{"focusMusicBox"});
    EXPECT_EQ(session.edits.clip.ClipLength, 2);
    EXPECT_EQ(notes(), "63 . . . . . . .");
}

TEST_F(Form2CommandTest, PasteOverwrites) {
    copyTwo();
    EXPECT_EQ(clicked(14), Lines{"focusMusicBox"});
    EXPECT_EQ(notes(), "61 62 62 63 . . . .");
}

TEST_F(Form2CommandTest, PasteIntoMakesRoomFirst) {
    copyTwo();
    EXPECT_EQ(clicked(15), (Lines{"focusMusicBox", "focusMusicBox"}));
    EXPECT_EQ(notes(), "61 62 60 61 62 63 . .");
}

TEST_F(Form2CommandTest, InsertMakesRoomForItsSpaces) {
    copyTwo();
    desk.spaces = "3";
    EXPECT_EQ(clicked(16), Lines{"focusMusicBox"});
    EXPECT_EQ(notes(), ". . . 60 61 62 63 .");
}

TEST_F(Form2CommandTest, ButtonsThatDoNotExistDoNothing) {
    copyTwo();
    for (const int index : {0, 18}) {
        EXPECT_EQ(clicked(index), Lines{}) << index;
        EXPECT_EQ(notes(), "60 61 62 63 . . . .") << index;
        EXPECT_EQ(studio.run.IsPlaying, flagClear) << index;
        EXPECT_EQ(studio.run.PauseFlag, flagClear) << index;
    }
    EXPECT_EQ(host.dialogs.log, Lines{});
}

TEST_F(Form2CommandTest, PlayingASelectionSetsThePlayingFlagForItsLength) {
    session.sounding.openDevice(0);
    note(2, 10, 60);
    studio.run.PlayBlockStart = 10;
    studio.run.PlayBlockEnd = 30;
    bool played = false;
    host.time.plan(scripted::nanosecondsPerSecond, [&] {
        played = hasSounded() && studio.run.PlayingSelection == flagSet;
        EXPECT_EQ(studio.run.IsPlaying, -1);
    });
    EXPECT_EQ(clicked(5), Lines{"enableTableaux"});
    EXPECT_TRUE(played);
    EXPECT_EQ(studio.run.IsPlaying, 0);
}

TEST_F(Form2CommandTest, PlayingNoSelectionLeavesThePlayingFlagClear) {
    EXPECT_EQ(clicked(5), Lines{});
    EXPECT_EQ(studio.run.IsPlaying, 0);
    EXPECT_EQ(host.midi.log, Lines{});
}

TEST_F(Form2CommandTest, PauseSetsItsFlagOnly) {
    EXPECT_EQ(clicked(6), Lines{});
    EXPECT_EQ(studio.run.PauseFlag, -1);
    EXPECT_EQ(studio.run.IsPlaying, 0);
    EXPECT_EQ(host.midi.log, Lines{});
}

TEST_F(Form2CommandTest, TheRowsOfADuplicateComeFromTheTwoBoxes) {
    form().Text4->setText("17");
    form().Text5->setText("16");
    form().Text3->setText("17");
    // The rows that got a copy of the note of column 2.
    const auto rows = [this](bool percussion, bool instruments) {
        form().Check1->setChecked(percussion);
        form().Check2->setChecked(instruments);
        score.ClearNoteArrays();
        for (int row = 0; row < scoreRows; ++row)
            note(row, 2, 60);
        form().Cmd2_Click(17);
        std::vector<int> copied;
        for (int row = 0; row < scoreRows; ++row) {
            EXPECT_EQ(score.NoteArray.read(row, 2), 60) << row;
            if (score.NoteArray.read(row, 19) == 60)
                copied.push_back(row);
        }
        return copied;
    };
    EXPECT_EQ(rows(true, true), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(rows(true, false), (std::vector{8, 9, 10, 11, 12}));
    EXPECT_EQ(rows(false, true), (std::vector{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(rows(false, false), std::vector<int>{});
}

} // namespace
} // namespace velorin

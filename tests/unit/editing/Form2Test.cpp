// The Editing Toolbar: its buttons, its two modes, its number boxes and its settings.
#include "editing/Form2.h"

#include "editing/EditCommands.h"
#include "editing/EditingToolbar.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/QuietToolDesk.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

namespace velorin {
namespace {

using Lines = std::vector<std::string>;

struct RecordingCommands final : EditCommands {
    Lines log;
    std::function<void()> onPlaySelection;
    std::string text3, text4, text5;

    void mNew_Click() override { log.emplace_back("mNew_Click"); }
    void HideToolbars() override { log.emplace_back("HideToolbars"); }
    void ShowToolbars() override { log.emplace_back("ShowToolbars"); }
    void Command33_Click() override { log.emplace_back("Command33_Click"); }
    void mSaveAs_Click() override { log.emplace_back("mSaveAs_Click"); }
    void PlayAndStop_Click(int index) override {
        log.push_back("PlayAndStop_Click " + std::to_string(index));
    }
    void PlaySelection() override {
        log.emplace_back("PlaySelection");
        if (onPlaySelection)
            onPlaySelection();
    }
    void RewindBut_Click() override { log.emplace_back("RewindBut_Click"); }
    void copyIt() override { log.emplace_back("copyIt"); }
    void CutBut_Click() override { log.emplace_back("CutBut_Click"); }
    void PasteBut_Click() override { log.emplace_back("PasteBut_Click"); }
    void PasteIntoBut_Click() override { log.emplace_back("PasteIntoBut_Click"); }
    void InsertColumnBut_Click() override { log.emplace_back("InsertColumnBut_Click"); }
    void CopyNotes(int firstRow, int lastRow) override {
        log.push_back("CopyNotes " + std::to_string(firstRow) + " " + std::to_string(lastRow));
    }
    void FunctionBut_Click(int index) override {
        log.push_back("FunctionBut_Click " + std::to_string(index));
    }
    void setText3(const std::string& text) override { text3 = text; }
    void setText4(const std::string& text) override { text4 = text; }
    void setText5(const std::string& text) override { text5 = text; }
};

class Form2Test : public testing::Test {
protected:
    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    RecordingCommands commands;
    scripted::QuietToolDesk desk;
    EditingToolbar toolbar{studio, commands, desk};

    Form2& form() { return toolbar.form(); }
    Lines clicked(int index) {
        commands.log.clear();
        form().Cmd2_Click(index);
        return commands.log;
    }
    void store(const std::string& key, const std::string& value) {
        host.settings.SaveSetting("Settings", key, value);
    }
    std::string stored(const std::string& key) {
        return host.settings.find("Settings", key).value_or("none");
    }
};

TEST_F(Form2Test, EachButtonRunsItsCommand) {
    EXPECT_EQ(clicked(1), Lines{"mNew_Click"});
    EXPECT_EQ(clicked(2), (Lines{"HideToolbars", "Command33_Click", "ShowToolbars"}));
    EXPECT_EQ(clicked(3), (Lines{"HideToolbars", "mSaveAs_Click", "ShowToolbars"}));
    EXPECT_EQ(clicked(4), Lines{"PlayAndStop_Click 0"});
    EXPECT_EQ(clicked(7), Lines{"PlayAndStop_Click 1"});
    EXPECT_EQ(clicked(8), Lines{"RewindBut_Click"});
    EXPECT_EQ(clicked(12), Lines{"copyIt"});
    EXPECT_EQ(clicked(13), Lines{"CutBut_Click"});
    EXPECT_EQ(clicked(14), Lines{"PasteBut_Click"});
    EXPECT_EQ(clicked(15), Lines{"PasteIntoBut_Click"});
    EXPECT_EQ(clicked(16), Lines{"InsertColumnBut_Click"});
    EXPECT_EQ(clicked(0), Lines{});
    EXPECT_EQ(clicked(18), Lines{});
}

TEST_F(Form2Test, PlayingASelectionSetsThePlayingFlagForItsLength) {
    commands.onPlaySelection = [this] { EXPECT_EQ(studio.run.IsPlaying, -1); };
    EXPECT_EQ(clicked(5), Lines{"PlaySelection"});
    EXPECT_EQ(studio.run.IsPlaying, 0);
}

TEST_F(Form2Test, PauseSetsItsFlagOnly) {
    EXPECT_EQ(clicked(6), Lines{});
    EXPECT_EQ(studio.run.PauseFlag, -1);
}

TEST_F(Form2Test, TheTogglesTurnTheirFlagsAndLeaveTheHiddenBoxes) {
    form().Cmd2_Click(9);
    EXPECT_EQ(studio.run.ShowNotePosition, 0);
    form().Cmd2_Click(9);
    EXPECT_EQ(studio.run.ShowNotePosition, -1);
    form().Cmd2_Click(10);
    EXPECT_EQ(studio.run.LoopSong, -1);
    EXPECT_FALSE(form().chkgraphics->isChecked());
    EXPECT_FALSE(form().loopcheck->isChecked());
}

TEST_F(Form2Test, TheHiddenBoxesSetTheFlagsToo) {
    form().chkgraphics->setChecked(true);
    form().chkgraphics->setChecked(false);
    EXPECT_EQ(studio.run.ShowNotePosition, 0);
    form().loopcheck->setChecked(true);
    EXPECT_EQ(studio.run.LoopSong, -1);
}

TEST_F(Form2Test, TheRowsOfADuplicateComeFromTheTwoBoxes) {
    const auto rows = [this](bool percussion, bool instruments) {
        form().Check1->setChecked(percussion);
        form().Check2->setChecked(instruments);
        return clicked(17);
    };
    EXPECT_EQ(rows(true, true), Lines{"CopyNotes 0 12"});
    EXPECT_EQ(rows(true, false), Lines{"CopyNotes 8 12"});
    EXPECT_EQ(rows(false, true), Lines{"CopyNotes 0 7"});
    EXPECT_EQ(rows(false, false), Lines{"CopyNotes 8 7"});
}

TEST_F(Form2Test, ItOpensInDrawModeWithItsLowerHalfDead) {
    EXPECT_EQ(form().EditToolbarMode, 1);
    EXPECT_EQ(commands.log, Lines{});
    EXPECT_FALSE(form().Cmd2[12]->isEnabled());
    EXPECT_FALSE(form().Cmd2[17]->isEnabled());
    EXPECT_TRUE(form().Cmd2[11]->isEnabled());
    for (const QWidget* dead :
         {static_cast<QWidget*>(form().Text1), static_cast<QWidget*>(form().Text3),
          static_cast<QWidget*>(form().VScroll4), static_cast<QWidget*>(form().Check1),
          static_cast<QWidget*>(form().Label6[2])}) {
        EXPECT_FALSE(dead->isEnabled()) << dead->objectName().toStdString();
    }
}

TEST_F(Form2Test, TheModeButtonTurnsToSelectingAndBack) {
    EXPECT_EQ(clicked(11), Lines{"FunctionBut_Click 2"});
    EXPECT_EQ(form().EditToolbarMode, 0);
    EXPECT_TRUE(form().Cmd2[12]->isEnabled());
    EXPECT_TRUE(form().Text5->isEnabled());
    EXPECT_EQ(clicked(11), Lines{"FunctionBut_Click 0"});
    EXPECT_EQ(form().EditToolbarMode, 1);
    EXPECT_FALSE(form().Text5->isEnabled());
}

TEST_F(Form2Test, ClosingReturnsTheTableauxToDrawingAndOpeningShowsDrawMode) {
    form().Cmd2_Click(11);
    commands.log.clear();
    form().imgTitleClose_Click();
    EXPECT_EQ(commands.log, Lines{"FunctionBut_Click 0"});
    EXPECT_EQ(toolbar.window(), nullptr);
    EXPECT_EQ(studio.run.Form2Open, 0);
    EXPECT_EQ(form().EditToolbarMode, 1);
    EXPECT_EQ(studio.run.Form2Open, -1);
}

TEST_F(Form2Test, LoadingWritesTheBoxesThroughToTheirCopies) {
    toolbar.load();
    EXPECT_EQ(commands.text3, "60");
    EXPECT_EQ(commands.text4, "12");
    EXPECT_EQ(commands.text5, "12");
    EXPECT_EQ(form().Text1->text(), "1");
}

TEST_F(Form2Test, ASavedPairComesBack) {
    store("Repeat", "40");
    store("Beats", "31");
    EXPECT_EQ(form().Text4->text(), "40");
    EXPECT_EQ(form().Text5->text(), "31");
    toolbar.unload();
    EXPECT_EQ(stored("Repeat"), "40");
    EXPECT_EQ(stored("Beats"), "31");
}

TEST_F(Form2Test, SavedBeatsAboveRepeatShowAsRepeat) {
    store("Repeat", "8");
    store("Beats", "12");
    EXPECT_EQ(form().Text5->text(), "8");
    EXPECT_EQ(commands.text5, "8");
}

TEST_F(Form2Test, BeatsFollowRepeatDownAndNotUp) {
    form().Text4->setText("20");
    form().Text5->setText("20");
    form().Text4->setText("16");
    EXPECT_EQ(form().Text5->text(), "16");
    EXPECT_EQ(commands.text5, "16");
    form().Text4->setText("30");
    EXPECT_EQ(form().Text5->text(), "16");
    form().Text5->setText("31");
    EXPECT_EQ(form().Text5->text(), "30");
}

TEST_F(Form2Test, TheSpinBarsWriteTheirBoxesAndStandWhereTheyBegan) {
    EXPECT_EQ(form().VScroll2->value(), 60);
    EXPECT_EQ(form().VScroll3->value(), 28);
    EXPECT_EQ(form().VScroll4->value(), 28);
    // The step back is the upper arrow's, and the high value is at the top.
    form().VScroll2->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(form().Text3->text(), "70");
    form().VScroll4->setValue(44);
    EXPECT_EQ(form().Text4->text(), "44");
    form().VScroll3->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(form().Text5->text(), "24");
    EXPECT_EQ(form().VScroll2->maximum(), 99);
    EXPECT_EQ(form().VScroll3->maximum(), 60);
}

TEST_F(Form2Test, TheMarkerFollowsItsSettingAndIsSaved) {
    store("Playing position", "False");
    toolbar.load();
    EXPECT_EQ(studio.run.ShowNotePosition, 0);
    form().Cmd2_Click(9);
    toolbar.unload();
    EXPECT_EQ(stored("Playing position"), "True");
}

TEST_F(Form2Test, TheDefaultPlaceIsLowAndRightOfTheMiddle) {
    // (1024 - 692) / 2 pixels and 200 twips; 768 - 122 pixels less 700 twips.
    EXPECT_EQ(form().place.Left(), 2690.0F);
    EXPECT_EQ(form().place.Top(), 8990.0F);
    EXPECT_TRUE(isTopMost(form()));
    toolbar.unload();
    EXPECT_EQ(stored("form2 left"), "2690");
    EXPECT_EQ(stored("form2 top"), "8990");
}

TEST_F(Form2Test, TheToolTipsAreThoseOfTheCommands) {
    EXPECT_EQ(form().Cmd2[3]->toolTip(), "Save as  Score (sng) or MIDI file (mid)");
    EXPECT_EQ(form().Cmd2[16]->toolTip(), "Insert # Space(s) ");
    EXPECT_EQ(form().Text1->toolTip(), "Insert # of spaces");
    EXPECT_EQ(form().Text5->toolTip(), "Total # of Playable notes in duplicated cycle");
    EXPECT_EQ(form().Check2->toolTip(), "Duplicate Instrument section");
}

TEST_F(Form2Test, ButtonShowsWhileThePointerIsOnItsPicture) {
    EXPECT_FALSE(form().isCmd2Visible(5));
    form().ImgPic_MouseMove(5);
    EXPECT_TRUE(form().isCmd2Visible(5));
    form().ImgPic_MouseMove(9); // further away, where it hides nothing
    EXPECT_TRUE(form().isCmd2Visible(5));
    form().ImgPic_MouseMove(6);
    EXPECT_FALSE(form().isCmd2Visible(5));
    EXPECT_TRUE(form().isCmd2Visible(6));
    EXPECT_TRUE(form().isCmd2Visible(9));
    form().Form_MouseMove();
    EXPECT_FALSE(form().isCmd2Visible(6));
    EXPECT_FALSE(form().isCmd2Visible(9));
}

TEST_F(Form2Test, FacesAtTheEndsOfTheRowHaveOneNeighbour) {
    form().ImgPic_MouseMove(1);
    form().ImgPic_MouseMove(17);
    form().ImgPic_MouseMove(0);
    form().ImgPic_MouseMove(18);
    EXPECT_TRUE(form().isCmd2Visible(1));
    EXPECT_TRUE(form().isCmd2Visible(17));
    form().ImgPic_MouseDown(4);
    EXPECT_FALSE(form().isCmd2Visible(1));
}

TEST_F(Form2Test, ClickTakesTheButtonAwayAndLeavesTheOthers) {
    form().ImgPic_MouseMove(3);
    form().ImgPic_MouseMove(8);
    form().Cmd2[8]->click();
    EXPECT_FALSE(form().isCmd2Visible(8));
    EXPECT_TRUE(form().isCmd2Visible(3));
    form().ImgPic_MouseUp(3);
    EXPECT_FALSE(form().isCmd2Visible(3));
}

} // namespace
} // namespace velorin

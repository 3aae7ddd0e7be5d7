// The Editing Toolbar: its two modes, its toggles, its number boxes and its settings.
#include "windows/editing/Form2.h"

#include "EditingToolbarStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

class Form2Test : public testing::Test, protected EditingToolbarStage {
protected:
    void store(const std::string& key, const std::string& value) {
        host.settings.SaveSetting("Settings", key, value);
    }
    std::string stored(const std::string& key) {
        return host.settings.find("Settings", key).value_or("none");
    }
};

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

TEST_F(Form2Test, ItOpensInDrawModeWithItsLowerHalfDead) {
    EXPECT_EQ(form().EditToolbarMode, 1);
    EXPECT_EQ(desk.log, Lines{});
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
    desk.log.clear();
    form().imgTitleClose_Click();
    EXPECT_EQ(desk.log, Lines{"FunctionBut_Click 0"});
    EXPECT_EQ(toolbar.window(), nullptr);
    EXPECT_EQ(studio.run.Form2Open, 0);
    EXPECT_EQ(form().EditToolbarMode, 1);
    EXPECT_EQ(studio.run.Form2Open, -1);
}

TEST_F(Form2Test, LoadingWritesTheBoxesThroughToTheirCopies) {
    toolbar.load();
    EXPECT_EQ(desk.texts[MainText::Text3], "60");
    EXPECT_EQ(desk.texts[MainText::Text4], "12");
    EXPECT_EQ(desk.texts[MainText::Text5], "12");
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
    EXPECT_EQ(desk.texts[MainText::Text5], "8");
}

TEST_F(Form2Test, BeatsFollowRepeatDownAndNotUp) {
    form().Text4->setText("20");
    form().Text5->setText("20");
    form().Text4->setText("16");
    EXPECT_EQ(form().Text5->text(), "16");
    EXPECT_EQ(desk.texts[MainText::Text5], "16");
    form().Text4->setText("30");
    EXPECT_EQ(form().Text5->text(), "16");
    form().Text5->setText("31");
    EXPECT_EQ(form().Text5->text(), "30");
}

TEST_F(Form2Test, TheSpinBarsWriteTheirBoxesAndStartAtTheirOwnValues) {
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

// The layout of the main window, and scrolling.
#include "support/TableauStage.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <functional>

using namespace velorin;

namespace {

class Layout : public testing::Test {
protected:
    View& view() { return stage.studio.view; }

    scripted::TableauStage stage;
};

/// The size is a whole number of cells. A window that is wide and high enough shows all of them.
struct SizeCase {
    int width, height, columns, rows;
    QRect area, music;
};

class LayoutSizes : public testing::TestWithParam<SizeCase> {};

INSTANTIATE_TEST_SUITE_P(
    Sizes, LayoutSizes,
    testing::Values(SizeCase{640, 480, 46, 26, {26, 71, 589, 383}, {29, 25, 530, 283}},
                    SizeCase{640, 497, 46, 27, {26, 71, 589, 400}, {29, 25, 530, 300}},
                    SizeCase{1280, 800, 99, 46, {26, 71, 1229, 703}, {29, 25, 1166, 603}},
                    SizeCase{3840, 2160, 313, 131, {26, 71, 3789, 2063}, {29, 25, 3734, 1963}}));

} // namespace

TEST_P(LayoutSizes, CellsAndRectanglesFollowTheWindow) {
    const SizeCase& expected = GetParam();
    scripted::TableauStage stage;
    stage.resize(expected.width, expected.height);
    EXPECT_EQ(stage.studio.view.VisibleColumns, expected.columns);
    EXPECT_EQ(stage.studio.view.VisibleRows, expected.rows);
    EXPECT_EQ(stage.area.geometry(), expected.area);
    EXPECT_EQ(stage.area.MusicBox->geometry(), expected.music);
    EXPECT_EQ(stage.area.MusicBox->picture.ScaleWidth(), expected.music.width());
    EXPECT_EQ(stage.area.SwapScreen.ScaleHeight(), expected.music.height());
    EXPECT_EQ(stage.area.BlueBox.ScaleWidth(), expected.music.width());
    EXPECT_EQ(stage.area.RedBox.ScaleWidth(), 12);
    EXPECT_EQ(stage.area.GreenBox.ScaleHeight(), expected.music.height());
    EXPECT_EQ(stage.desk.toolbMenuWidth, expected.width - 50);
    EXPECT_EQ(stage.desk.picture2Left, expected.width - 144);
}

TEST_F(Layout, CompanionsArePlacedAroundTheTableau) {
    stage.resize(1280, 800);
    EXPECT_EQ(stage.area.Pic1->geometry(), QRect(29, 629, 1166, 58));
    EXPECT_EQ(stage.area.Pt1->geometry(), QRect(15, 629, 16, 70));
    EXPECT_EQ(stage.area.Beatbox->geometry(), QRect(29, 23, 1166, 12));
    EXPECT_EQ(stage.area.PicX->geometry(), QRect(3, 25, 26, 602));
    EXPECT_EQ(stage.area.TopBarOverlay->geometry(), QRect(29, 2, 1165, 18));
    EXPECT_EQ(stage.area.Shape2->geometry(), QRect(9, 2, 1186, 18));
    EXPECT_EQ(stage.area.HScroll1->geometry(), QRect(29, 688, 1167, 14));
    EXPECT_EQ(stage.area.VScroll1->geometry(), QRect(1196, 25, 14, 603));
}

TEST_F(Layout, ClosedPolyphonicsGiveTheirHeightToTheTableau) {
    view().PolyOpen = flagClear;
    stage.resize(1280, 800);
    EXPECT_EQ(stage.area.MusicBox->geometry(), QRect(29, 25, 1166, 661));
    EXPECT_EQ(stage.area.HScroll1->geometry(), QRect(29, 687, 1167, 14));
    EXPECT_TRUE(stage.area.Pic1->isHidden());
    EXPECT_TRUE(stage.area.Pt1->isHidden());
    view().PolyOpen = flagSet;
    stage.layout.Form_Resize();
    EXPECT_EQ(stage.area.MusicBox->height(), 603);
    EXPECT_FALSE(stage.area.Pic1->isHidden());
}

TEST_F(Layout, ScrollBarsAreAtTheMiddleOfTheView) {
    stage.resize(640, 497);
    EXPECT_EQ(view().ColumnScrollBias, 23);
    EXPECT_EQ(view().RowScrollBias, 14);
    const QScrollBar& across = *stage.area.HScroll1;
    EXPECT_EQ(across.minimum(), 23);
    EXPECT_EQ(across.maximum(), 976);
    EXPECT_EQ(across.pageStep(), 47);
    EXPECT_EQ(across.singleStep(), 1);
    EXPECT_EQ(across.value(), 23);
    const QScrollBar& down = *stage.area.VScroll1;
    EXPECT_EQ(down.minimum(), 14);
    EXPECT_EQ(down.maximum(), 114);
    EXPECT_EQ(down.pageStep(), 28);
    EXPECT_EQ(down.value(), 69);
}

TEST_F(Layout, EndsOfTheScrollBarsAreTheEndsOfTheGrid) {
    stage.resize(640, 480);
    stage.area.HScroll1->setValue(stage.area.HScroll1->maximum());
    EXPECT_EQ(view().LastVisibleColumn, 999);
    stage.area.HScroll1->setValue(stage.area.HScroll1->minimum());
    EXPECT_EQ(view().FirstColumn, 0);
    stage.area.VScroll1->setValue(stage.area.VScroll1->maximum());
    EXPECT_EQ(view().BottomPitch, 127);
    EXPECT_EQ(view().TopPitch, 101);
    stage.area.VScroll1->setValue(stage.area.VScroll1->minimum());
    EXPECT_EQ(view().TopPitch, 0);
}

TEST_F(Layout, GrowingWindowAtTheRightEndMovesTheViewLeft) {
    stage.resize(640, 480);
    stage.area.HScroll1->setValue(stage.area.HScroll1->maximum());
    EXPECT_EQ(view().FirstColumn, 953);
    stage.resize(1280, 480);
    EXPECT_EQ(view().LastVisibleColumn, 999);
    EXPECT_EQ(view().FirstColumn, 900);
    stage.resize(640, 480);
    EXPECT_EQ(view().FirstColumn, 900);
    EXPECT_EQ(view().LastVisibleColumn, 946);
}

TEST_F(Layout, GrowingWindowAtTheLowerEndMovesTheViewUp) {
    stage.resize(640, 480);
    stage.area.VScroll1->setValue(stage.area.VScroll1->maximum());
    stage.resize(640, 800);
    EXPECT_EQ(view().BottomPitch, 127);
    EXPECT_EQ(view().TopPitch, 81);
}

TEST_F(Layout, MinimisedWindowIsLeftAlone) {
    stage.resize(640, 480);
    stage.desk.minimised = true;
    stage.resize(1280, 800);
    EXPECT_EQ(view().VisibleColumns, 46);
}

TEST_F(Layout, SizesBelowNothingAreRefusedOneByOne) {
    stage.resize(640, 480);
    stage.resize(57, 480);
    EXPECT_EQ(view().VisibleColumns, -2) << "-13 \\ 12 is -1";
    EXPECT_EQ(stage.area.MusicBox->geometry(), QRect(29, 25, 530, 283)) << "-46 wide is refused";
    stage.resize(640, 90);
    EXPECT_EQ(stage.area.height(), 383) << "-7 high is refused, with the width";
    stage.resize(640, 180);
    EXPECT_EQ(stage.area.height(), 83);
    EXPECT_EQ(stage.area.MusicBox->height(), 283) << "-17 high is refused";
    EXPECT_EQ(stage.area.MusicBox->width(), 530);
}

TEST_F(Layout, AnySizeComesAndGoesWithoutHarm) {
    for (const auto& [width, height] : {std::pair{57, 90},
                                        {0, 0},
                                        {100, 150},
                                        {8000, 8000},
                                        {71, 200},
                                        {12200, 300},
                                        {640, 480}}) {
        stage.resize(width, height);
        stage.area.HScroll1->setValue(stage.area.HScroll1->maximum());
        stage.area.VScroll1->setValue(stage.area.VScroll1->maximum());
        EXPECT_EQ(view().ResizeInProgress, flagClear);
    }
    EXPECT_EQ(stage.area.MusicBox->geometry(), QRect(29, 25, 530, 283));
}

TEST_F(Layout, ScrollSetsTheViewAndRedraws) {
    stage.resize(640, 480);
    stage.note(0, 100, 58, 1);
    view().ViewChanged = flagClear;
    stage.area.HScroll1->setValue(95 + 23);
    EXPECT_EQ(view().FirstColumn, 95);
    EXPECT_EQ(view().LastVisibleColumn, 141);
    EXPECT_EQ(view().ViewChanged, flagSet);
    EXPECT_EQ(stage.pixel(66, 43), rgb(255, 0, 0));

    view().ViewChanged = flagClear;
    stage.area.VScroll1->setValue(stage.area.VScroll1->value() - 1);
    EXPECT_EQ(view().TopPitch, 54);
    EXPECT_EQ(view().BottomPitch, 80);
    EXPECT_EQ(view().ViewChanged, flagSet);
    EXPECT_EQ(stage.pixel(66, 55), rgb(255, 0, 0)) << "the notes move with the lines";
    EXPECT_EQ(view().SharpRow[3], flagSet) << "so do the bands";
}

TEST_F(Layout, ScrollOfThePlayerDoesNotRedrawTheTableaux) {
    stage.resize(640, 480);
    stage.note(0, 100, 58, 1);
    view().PlayerScroll = flagSet;
    stage.area.HScroll1->setValue(95 + 23);
    EXPECT_EQ(view().FirstColumn, 95);
    EXPECT_NE(stage.pixel(66, 43), rgb(255, 0, 0));
    EXPECT_EQ(stage.area.TopBar[0]->text(), "97") << "the numbers follow all the same";
}

TEST_F(Layout, SettingTheRangeOfABarRunsNoHandler) {
    stage.resize(640, 480);
    view().PlayerScroll = flagSet; // the handler of the value shows itself by not redrawing
    stage.area.HScroll1->setValue(stage.area.HScroll1->minimum());
    view().FirstColumn = 0;
    stage.resize(1280, 480);
    EXPECT_EQ(stage.area.HScroll1->value(), view().ColumnScrollBias);
    EXPECT_EQ(view().FirstColumn, 0);
}

TEST_F(Layout, ScrollYieldsAfterTheViewIsSetAndAnotherMayRunInside) {
    stage.resize(640, 480);
    int columnInside = -1;
    stage.host.time.plan(0, [&] {
        columnInside = view().FirstColumn;
        stage.area.HScroll1->setValue(200 + 23);
    });
    stage.area.HScroll1->setValue(100 + 23);
    EXPECT_EQ(columnInside, 100);
    EXPECT_EQ(view().FirstColumn, 200);
    EXPECT_EQ(stage.area.TopBar[0]->text(), "201");
}

TEST_F(Layout, EveryChangeOfABarRunsItsHandlerOnce) {
    stage.resize(640, 480);
    QScrollBar& bar = *stage.area.HScroll1;
    int yields = 0; // one in each run of the handler
    std::function<void()> count = [&] {
        ++yields;
        stage.host.time.plan(0, count);
    };
    stage.host.time.plan(0, count);
    bar.setValue(30);
    EXPECT_EQ(yields, 1);
    bar.setValue(30);
    EXPECT_EQ(yields, 1) << "what is set already changes nothing";
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(yields, 2);
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(yields, 3);
    EXPECT_EQ(view().FirstColumn, 31 + 47 - 23);

    bar.setSliderDown(true);
    bar.setSliderPosition(200);
    EXPECT_EQ(yields, 4) << "the picture follows the thumb";
    EXPECT_EQ(view().FirstColumn, 177);
    bar.setSliderDown(false);
    EXPECT_EQ(yields, 4);
}

TEST_F(Layout, PictureOfAnotherScaleIsDrawnAnew) {
    stage.resize(640, 480);
    stage.note(0, 5, 58, 1);
    stage.music.DrawNoteArray();
    stage.area.MusicBox->picture.resize(530, 283, 2.0); // as on a screen that the window has left
    stage.area.MusicBox->grab();
    QApplication::processEvents();
    EXPECT_EQ(stage.area.MusicBox->picture.ratio(), stage.area.MusicBox->devicePixelRatioF());
    EXPECT_EQ(stage.pixel(71, 41), rgb(255, 0, 0));
}

TEST_F(Layout, FocusStaysWhereItIs) {
    stage.resize(640, 480);
    stage.area.show();
    stage.area.activateWindow();
    stage.area.MusicBox->setFocus();
    int lost = 0;
    stage.area.MusicBox->onLostFocus = [&] { ++lost; };
    stage.resize(800, 600);
    EXPECT_EQ(lost, 0);
    EXPECT_TRUE(stage.area.isVisible());
    EXPECT_TRUE(stage.area.updatesEnabled());
    stage.area.MusicBox->onLostFocus = nullptr;
}

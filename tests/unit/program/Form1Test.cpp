// The main window's own commands: the toolbar, the right-click mode, the tool windows, the frame.
#include "windows/main/Form1.h"
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"

#include <gmock/gmock.h>

#include <QApplication>

using testing::ElementsAre;

namespace velorin {
namespace {

struct Form1Test : testing::Test {
    void SetUp() override {
        form.resize(640, 480);
        host.midi.log.clear();
    }

    Form1& started() {
        applyLook(*qApp);
        EXPECT_TRUE(program.start());
        return program.form1();
    }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
    Form1& form = started();
};

TEST_F(Form1Test, TheButtonsDoNothingWhileTheStartIsNotOver) {
    program.studio().run.LoadingMain = flagSet;
    for (int i = 1; i <= 14; ++i)
        form.Cmd2_Click(i);
    EXPECT_FALSE(program.hasEnded());
    EXPECT_TRUE(host.midi.log.empty());
    EXPECT_TRUE(host.menus.log.empty());
}

TEST_F(Form1Test, ClearAllPutsTheStripBackToOneLine) {
    form.desk.setBeatboxHeight(60);
    program.studio().score.NoteArray.write(0, 3, 60);
    program.studio().score.PolyArray.write(1, 4, 1);
    form.Cmd2_Click(1);
    EXPECT_EQ(form.area->Beatbox->height(), 12);
    EXPECT_EQ(program.studio().score.NoteArray.at(0, 3), -1);
    EXPECT_EQ(program.studio().score.PolyArray.at(1, 4), 0);
    EXPECT_EQ(program.windows.focus.current(), form.area->MusicBox);
}

TEST_F(Form1Test, TheRightClickModeShowsOnItsButton) {
    QToolButton* button = form.toolbMenu->Cmd2[4];
    EXPECT_EQ(button->toolTip(), "Erase note on right-click");
    host.menus.choices = {"mnuPoli"};
    form.Cmd2_Click(4);
    EXPECT_EQ(program.studio().run.RightClickMode, 2);
    EXPECT_EQ(button->toolTip(), "Set Polynotes on right-click");
    EXPECT_THAT(host.menus.log, ElementsAre("mnupopup5;*Erase on Right-click;Menu on Right-Click;"
                                            "Set Polynotes on Right-Click"));
}

TEST_F(Form1Test, FourButtonsHaveANameAndNoTip) {
    const std::pair<int, const char*> names[] = {
        {7, "Stop"}, {9, "Setup"}, {13, "Help"}, {14, "Exit"}};
    for (const auto& [index, name] : names) {
        const QToolButton* button = form.toolbMenu->Cmd2[index];
        EXPECT_EQ(button->toolTip(), "");
        EXPECT_EQ(button->accessibleName(), name);
    }
}

TEST_F(Form1Test, AFileDialogHidesTheOpenToolbarsAndBringsThemBack) {
    QWidget* setup = program.window("Form3", false);
    ASSERT_TRUE(setup->isVisible());
    program.windows.HideToolbars();
    EXPECT_FALSE(setup->isVisible());
    program.windows.ShowToolbars();
    EXPECT_TRUE(setup->isVisible());
}

TEST_F(Form1Test, AClosedSetupToolbarComesBackWithItsDefaults) {
    program.studio().setup.setVol(3, "50");
    host.menus.choices = {"mnuSetupToolBar", "mnuSetupToolBar"};
    form.Cmd2_Click(9);
    EXPECT_EQ(program.window("Form3", false), nullptr);
    form.Cmd2_Click(9);
    ASSERT_NE(program.window("Form3", false), nullptr);
    EXPECT_EQ(program.studio().setup.vol(3), "127");
}

TEST_F(Form1Test, AHintTakesTheShortTipAway) {
    QToolButton* play = form.toolbMenu->Cmd2[6];
    EXPECT_EQ(play->toolTip(), "Play notes");
    form.Cmd2_MouseMove(6, 1); // the left button is held
    EXPECT_EQ(play->toolTip(), "Play notes");
    form.Cmd2_MouseMove(6, 0);
    EXPECT_EQ(play->toolTip(), "");
    EXPECT_TRUE(program.hints.isLoaded());
    EXPECT_EQ(host.time.stamp(), "0.000");
    host.time.pass(4'000'000'000);
    EXPECT_FALSE(program.hints.isLoaded());
}

TEST_F(Form1Test, ADragOfTheRightHandleWidensTheWindowAtTheRelease) {
    host.desktop.cursor = {639, 200};
    form.Resizer_MouseDown(1);
    host.desktop.cursor = {649, 230};
    EXPECT_EQ(form.width(), 640);
    form.Resizer_MouseUp(1);
    EXPECT_EQ(form.size(), QSize(650, 480));
    EXPECT_EQ(program.windows.frames.WindowResizable, 1);
}

TEST_F(Form1Test, MaximisingGoesThroughTheWindowState) {
    form.ToggleMaximize();
    EXPECT_EQ(form.windowState(), Qt::WindowMaximized);
    EXPECT_EQ(program.windows.frames.WindowResizable, 0);
    form.ToggleMaximize();
    EXPECT_EQ(form.windowState(), Qt::WindowNoState);
    EXPECT_EQ(form.size(), QSize(640, 480));
}

TEST_F(Form1Test, TheHelpOpensBesideTheProgram) {
    form.Cmdhelp_Click();
    EXPECT_THAT(host.desktop.programs,
                ElementsAre("help " + host.platform.programFolder + "\\velorin.chm"));
}

TEST_F(Form1Test, AScrollBarRefusesAValueOutsideItsRange) {
    const int before = form.area->HScroll1->value();
    form.desk.setHScroll1(5000);
    EXPECT_EQ(form.area->HScroll1->value(), before);
}

TEST_F(Form1Test, TheMainWindowsListAppliesTheInstrumentThatTheSetupToolbarShows) {
    form.desk.setMainCombo1(40);
    EXPECT_THAT(host.midi.log, ElementsAre("0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 18"));
    form.desk.setMainCombo1(40);
    form.desk.setMainCombo1(500);
    EXPECT_EQ(host.midi.log.size(), 3U);
}

} // namespace
} // namespace velorin

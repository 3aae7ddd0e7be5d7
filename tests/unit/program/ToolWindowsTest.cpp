// The tool windows hide with the main window, keep their order, stay apart and come back into
// reach.
#include "windows/frame/ToolWindows.h"

#include "WholeProgram.h"

#include <gmock/gmock.h>

#include <QScreen>

using testing::ElementsAre;

namespace velorin {
namespace {

QWidget* shown(WholeProgram& whole, Tool tool) {
    QWidget* const window = whole.program.windows.window(tool);
    return window != nullptr && window->isVisible() ? window : nullptr;
}

TEST(ToolWindowsTest, TheToolWindowsGoAndComeWithTheMainWindow) {
    WholeProgram whole;
    Form1& main = whole.program.form1();
    whole.program.windows.show(Tool::editing);
    whole.program.windows.show(Tool::recording);
    main.imgTitleMinimize_Click();
    for (const Tool tool : {Tool::editing, Tool::setup, Tool::recording})
        EXPECT_EQ(shown(whole, tool), nullptr) << static_cast<int>(tool);
    whole.program.windows.unload(Tool::editing); // closed meanwhile
    main.setWindowState(Qt::WindowNoState);
    EXPECT_EQ(shown(whole, Tool::editing), nullptr);
    EXPECT_NE(shown(whole, Tool::setup), nullptr);
    EXPECT_NE(shown(whole, Tool::recording), nullptr);
    EXPECT_EQ(shown(whole, Tool::tutorial), nullptr);
}

TEST(ToolWindowsTest, WhatWasHiddenBeforeStaysHidden) {
    WholeProgram whole;
    whole.program.windows.load(Tool::setup)->hide();
    whole.program.form1().imgTitleMinimize_Click();
    whole.program.form1().setWindowState(Qt::WindowNoState);
    EXPECT_EQ(shown(whole, Tool::setup), nullptr);
}

TEST(ToolWindowsTest, KeepsTheOrderInWhichTheWindowsLie) {
    WholeProgram whole;
    EXPECT_THAT(whole.program.windows.order(),
                ElementsAre(Tool::editing, Tool::recording, Tool::tutorial, Tool::setup));
    whole.program.windows.show(Tool::editing);
    EXPECT_THAT(whole.program.windows.order(),
                ElementsAre(Tool::recording, Tool::tutorial, Tool::setup, Tool::editing));
    whole.program.windows.noteActive(Tool::setup); // clicked
    whole.program.windows.HideToolbars();
    whole.program.windows.ShowToolbars(); // after a file dialog
    EXPECT_THAT(whole.program.windows.order(),
                ElementsAre(Tool::recording, Tool::tutorial, Tool::editing, Tool::setup));
}

TEST(ToolWindowsTest, AWindowThatNobodyHasPlacedOpensBesideTheOthers) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    const QRect setup = shown(whole, Tool::setup)->geometry();
    whole.program.windows.show(Tool::editing);
    const QRect editing = shown(whole, Tool::editing)->geometry();
    EXPECT_EQ(editing.left(), (1024 - editing.width()) / 2 + 13); // moved up, and no further
    EXPECT_EQ(editing.bottom() + 1, setup.top() - 10);
    whole.program.windows.unload(Tool::editing);
    whole.program.windows.show(Tool::editing); // its place is stored now
    EXPECT_EQ(shown(whole, Tool::editing)->geometry(), editing);
}

TEST(ToolWindowsTest, AWindowThatTheUserHasPlacedOpensThere) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    whole.host.settings.SaveSetting("Settings", "form2 left", "3690");
    whole.host.settings.SaveSetting("Settings", "form2 top", "7340");
    whole.program.windows.show(Tool::editing);
    EXPECT_EQ(shown(whole, Tool::editing)->pos(), shown(whole, Tool::setup)->pos());
}

TEST(ToolWindowsTest, WithoutRoomAWindowOpensWhereItIsByRule) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    QWidget* const setup = shown(whole, Tool::setup);
    setup->setGeometry(0, 0, 1024, 768);
    whole.program.windows.show(Tool::editing);
    EXPECT_EQ(shown(whole, Tool::editing)->x(), 179); // 2690 twips
}

TEST(ToolWindowsTest, WhenAScreenGoesAwayItsWindowsComeToTheNearest) {
    WholeProgram whole;
    const platform::RectPx first{0, 0, 1024, 768};
    const platform::RectPx second{1024, 0, 1280, 1024};
    whole.host.desktop.otherScreens = {{first, first}, {second, second}};
    Form1& main = whole.program.form1();
    QWidget* const setup = shown(whole, Tool::setup);
    main.resize(640, 480);
    main.move(1500, 500);
    setup->move(1200, 700);
    const auto screensChange = [] {
        QScreen* const screen = QGuiApplication::primaryScreen();
        Q_EMIT screen->geometryChanged(screen->geometry());
        QApplication::processEvents();
    };
    screensChange();
    EXPECT_EQ(main.pos(), QPoint(1500, 500));
    EXPECT_EQ(setup->pos(), QPoint(1200, 700));
    whole.host.desktop.otherScreens.clear();
    screensChange();
    EXPECT_EQ(main.pos(), QPoint(1024 - 640, 768 - 480));
    EXPECT_EQ(setup->pos(), QPoint(1024 - 532, 768 - 252));
}

} // namespace
} // namespace velorin

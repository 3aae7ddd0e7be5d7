// The tool windows go with the main window, lie as they lay, stand apart and come back into reach.
#include "program/WindowGroup.h"

#include "WholeProgram.h"

#include <gmock/gmock.h>

#include <QScreen>

using testing::ElementsAre;

namespace velorin {
namespace {

QWidget* shown(WholeProgram& whole, const char* name) {
    QWidget* const window = whole.program.window(QLatin1String(name), false);
    return window != nullptr && window->isVisible() ? window : nullptr;
}

TEST(WindowGroup, TheToolWindowsGoAndComeWithTheMainWindow) {
    WholeProgram whole;
    Form1& main = whole.program.form1();
    whole.program.showWindow("Form2");
    whole.program.showWindow("Record");
    main.imgTitleMinimize_Click();
    for (const char* const name : {"Form2", "Form3", "Record"})
        EXPECT_EQ(shown(whole, name), nullptr) << name;
    whole.program.unloadWindow("Form2"); // closed meanwhile
    main.setWindowState(Qt::WindowNoState);
    EXPECT_EQ(shown(whole, "Form2"), nullptr);
    EXPECT_NE(shown(whole, "Form3"), nullptr);
    EXPECT_NE(shown(whole, "Record"), nullptr);
    EXPECT_EQ(shown(whole, "Wiz"), nullptr);
}

TEST(WindowGroup, WhatWasHiddenBeforeStaysHidden) {
    WholeProgram whole;
    whole.program.window("Form3", true)->hide();
    whole.program.form1().imgTitleMinimize_Click();
    whole.program.form1().setWindowState(Qt::WindowNoState);
    EXPECT_EQ(shown(whole, "Form3"), nullptr);
}

TEST(WindowGroup, KeepsTheOrderInWhichTheWindowsLie) {
    WholeProgram whole;
    EXPECT_THAT(whole.program.group.order(), ElementsAre("Form2", "Record", "Wiz", "Form3"));
    whole.program.showWindow("Form2");
    EXPECT_THAT(whole.program.group.order(), ElementsAre("Record", "Wiz", "Form3", "Form2"));
    whole.program.form1().noteActiveToolbar("Form3"); // clicked
    whole.program.form1().HideToolbars();
    whole.program.form1().ShowToolbars(); // behind a file dialog
    EXPECT_THAT(whole.program.group.order(), ElementsAre("Record", "Wiz", "Form2", "Form3"));
}

TEST(WindowGroup, AWindowThatNobodyHasPlacedOpensBesideTheOthers) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    const QRect setup = shown(whole, "Form3")->geometry();
    whole.program.showWindow("Form2");
    const QRect editing = shown(whole, "Form2")->geometry();
    EXPECT_EQ(editing.left(), (1024 - editing.width()) / 2 + 13); // moved up, and no further
    EXPECT_EQ(editing.bottom() + 1, setup.top() - 10);
    whole.program.unloadWindow("Form2");
    whole.program.showWindow("Form2"); // its place is stored now
    EXPECT_EQ(shown(whole, "Form2")->geometry(), editing);
}

TEST(WindowGroup, AWindowThatTheUserHasPlacedOpensThere) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    whole.host.settings.SaveSetting("Settings", "form2 left", "3690");
    whole.host.settings.SaveSetting("Settings", "form2 top", "7340");
    whole.program.showWindow("Form2");
    EXPECT_EQ(shown(whole, "Form2")->pos(), shown(whole, "Form3")->pos());
}

TEST(WindowGroup, WithoutRoomAWindowOpensWhereItIsByRule) {
    WholeProgram whole;
    whole.host.desktop.standsApart = true;
    QWidget* const setup = shown(whole, "Form3");
    setup->setGeometry(0, 0, 1024, 768);
    whole.program.showWindow("Form2");
    EXPECT_EQ(shown(whole, "Form2")->x(), 179); // 2690 twips
}

TEST(WindowGroup, WhenAScreenGoesAwayItsWindowsComeToTheNearest) {
    WholeProgram whole;
    const platform::RectPx first{0, 0, 1024, 768};
    const platform::RectPx second{1024, 0, 1280, 1024};
    whole.host.desktop.otherScreens = {{first, first}, {second, second}};
    Form1& main = whole.program.form1();
    QWidget* const setup = shown(whole, "Form3");
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

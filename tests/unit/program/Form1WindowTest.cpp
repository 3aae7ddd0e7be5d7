// The main window as a window: its edges, its handles, the focus, the wheel.
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

using testing::ElementsAre;

namespace velorin {
namespace {

struct Form1WindowTest : testing::Test {
    void SetUp() override {
        form.resize(640, 480);
        form.activateWindow();
        QApplication::processEvents();
    }

    void mouse(QEvent::Type type, QWidget& control, QPoint place, Qt::MouseButton button,
               Qt::MouseButtons held) {
        QMouseEvent event(type, place, control.mapToGlobal(QPointF(place)), button, held,
                          Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    }
    void press(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonPress, control, place, button, button);
    }
    void release(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonRelease, control, place, button, Qt::NoButton);
    }
    /// Sends it to the control with the focus, like the window system.
    void key(Qt::Key pressed) {
        QWidget* const holder = form.focusWidget() != nullptr ? form.focusWidget() : &form;
        const QString text = pressed == Qt::Key_Space ? QStringLiteral(" ") : QString();
        QKeyEvent ask(QEvent::ShortcutOverride, pressed, Qt::NoModifier, text);
        ask.ignore();
        QApplication::sendEvent(holder, &ask);
        isTaken = ask.isAccepted();
        QKeyEvent down(QEvent::KeyPress, pressed, Qt::NoModifier, text);
        QApplication::sendEvent(holder, &down);
        QKeyEvent up(QEvent::KeyRelease, pressed, Qt::NoModifier, text);
        QApplication::sendEvent(holder, &up);
    }
    void turn(int across, int down, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWheelEvent event(QPointF(100, 200), form.mapToGlobal(QPointF(100, 200)), QPoint(),
                          QPoint(across, down), Qt::NoButton, held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&form, &event);
    }
    /// True if a control's edge has the colour of the focus ring.
    static bool hasRing(PictureBox& box) {
        return box.grab().toImage().pixelColor(0, box.height() / 2) !=
               box.picture.image().pixelColor(0, box.height() / 2);
    }
    void expectHandlesAtTheEdges() {
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(form.frame.Resizer[i]->geometry(), handleRect(i, form.size()));
    }

    Form1& started() {
        applyLook(*qApp);
        EXPECT_TRUE(program.start());
        return program.form1();
    }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
    Form1& form = started();
    bool isTaken = false; ///< the control has taken the key, and no shortcut gets it
};

TEST_F(Form1WindowTest, AnEdgeAndTheFootOfTheFrameDragTheWindow) {
    const QPoint foot(300, 480 - 14);
    for (const QPoint grip : {QPoint(14, 200), QPoint(640 - 14, 200), foot}) {
        form.move(60, 50);
        press(form, grip);
        mouse(QEvent::MouseMove, form, grip + QPoint(20, 10), Qt::NoButton, Qt::LeftButton);
        EXPECT_EQ(form.pos(), QPoint(80, 60));
        release(form, grip);
        mouse(QEvent::MouseMove, form, grip + QPoint(70, 70), Qt::NoButton, Qt::NoButton);
        EXPECT_EQ(form.pos(), QPoint(80, 60));
    }
}

TEST_F(Form1WindowTest, ARightPressOnTheFrameDragsNothing) {
    form.move(60, 50);
    press(form, {14, 200}, Qt::RightButton);
    mouse(QEvent::MouseMove, form, {34, 210}, Qt::NoButton, Qt::RightButton);
    EXPECT_EQ(form.pos(), QPoint(60, 50));
}

TEST_F(Form1WindowTest, WhateverSizesTheWindowTheHandlesGoWithItsEdges) {
    program.windows.frames.WindowResizable = 0; // the wizard was opened
    form.resize(700, 520);
    expectHandlesAtTheEdges();
    form.ToggleMaximize();
    form.ToggleMaximize();
    EXPECT_EQ(program.windows.frames.WindowResizable, 0);
    form.resize(800, 600);
    expectHandlesAtTheEdges();
}

TEST_F(Form1WindowTest, TheHandlesOfAMaximisedWindowTakeNoPress) {
    program.windows.frames.WindowResizable = 0;
    form.ToggleMaximize();
    QWidget* const handle = form.frame.Resizer[1];
    EXPECT_NE(form.childAt(handle->geometry().center()), handle);
    form.ToggleMaximize();
    EXPECT_EQ(form.childAt(handle->geometry().center()), handle);
}

TEST_F(Form1WindowTest, TheHelpMenuOpensAtEveryReleaseOfItsButton) {
    PictureButton& help = *form.toolbMenu->Cmd2[13];
    const std::string menu = "mnupopup3;Help";
    press(help, {5, 5}, Qt::RightButton);
    EXPECT_THAT(host.menus.log, ElementsAre());
    release(help, {5, 5}, Qt::RightButton);
    EXPECT_THAT(host.menus.log, ElementsAre(menu));
    press(help, {5, 5});
    release(help, {300, 200});
    EXPECT_THAT(host.menus.log, ElementsAre(menu, menu));
    press(help, {5, 5});
    release(help, {5, 5});
    EXPECT_THAT(host.menus.log, ElementsAre(menu, menu, menu));
    help.click(); // a key
    EXPECT_EQ(host.menus.log.size(), 4U);
}

TEST_F(Form1WindowTest, LockedTableauxGiveTheKeyboardBackToWhoHadIt) {
    PictureBox& music = *form.area->MusicBox;
    program.windows.focus.give(&music);
    ASSERT_EQ(form.focusWidget(), &music);
    form.desk.enableTableaux(false);
    EXPECT_EQ(form.focusWidget(), &form);
    EXPECT_FALSE(hasRing(*form.area->Beatbox));
    form.desk.enableTableaux(true);
    EXPECT_EQ(form.focusWidget(), &music);
    EXPECT_FALSE(hasRing(music));
    EXPECT_FALSE(hasRing(*form.area->Beatbox));
}

TEST_F(Form1WindowTest, WhoWentElsewhereMeanwhileKeepsTheKeyboard) {
    program.windows.focus.give(form.area->MusicBox);
    form.desk.enableTableaux(false);
    program.windows.focus.give(form.toolbMenu->Cmd2[7]);
    form.desk.enableTableaux(true);
    EXPECT_EQ(form.focusWidget(), form.toolbMenu->Cmd2[7]);
}

TEST_F(Form1WindowTest, TabThroughTheStripChoosesNoPercussionRow) {
    program.windows.focus.give(form.area->MusicBox);
    key(Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), form.area->Beatbox);
    EXPECT_EQ(program.windows.focus.current(), form.area->Beatbox);
    EXPECT_EQ(program.studio().score.CurrentRow, 0);
    key(Qt::Key_Tab);
    EXPECT_EQ(program.windows.focus.current(), form.area->Pic1);
    EXPECT_EQ(program.studio().score.CurrentRow, 0);
    key(Qt::Key_Tab);
    EXPECT_EQ(program.windows.focus.current(), form.area->VScroll1);
}

TEST_F(Form1WindowTest, EnterOrSpaceOnTheStripChoosesAPercussionRow) {
    for (const Qt::Key chosen : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        program.session.TrackSel_Click(0);
        program.studio().setup.setTrackSel(8, false);
        program.studio().setup.setTrackSel(0, true);
        program.windows.focus.give(form.area->MusicBox);
        key(Qt::Key_Tab);
        ASSERT_EQ(program.studio().score.CurrentRow, 0);
        key(chosen);
        EXPECT_TRUE(isTaken);
        EXPECT_EQ(program.studio().score.CurrentRow, 8);
        EXPECT_TRUE(program.studio().setup.TrackSel(8));
        key(chosen); // and now it is a key like any other
        EXPECT_FALSE(isTaken);
    }
}

TEST_F(Form1WindowTest, AClickOnTheStripThatTabHasComeToChoosesAPercussionRow) {
    program.windows.focus.give(form.area->MusicBox);
    key(Qt::Key_Tab);
    press(*form.area->Beatbox, {30, 5});
    release(*form.area->Beatbox, {30, 5});
    EXPECT_EQ(program.studio().score.CurrentRow, 8);
}

TEST_F(Form1WindowTest, ASlowFingerScrollsAsFarAsAQuickOne) {
    const int start = form.area->VScroll1->value();
    for (int i = 0; i < 12; ++i)
        turn(0, -10); // a notch of a wheel in all
    EXPECT_EQ(form.area->VScroll1->value(), start + 3);
    turn(0, 39); // back, and the rest of before does not count
    EXPECT_EQ(form.area->VScroll1->value(), start + 3);
    turn(0, 1);
    EXPECT_EQ(form.area->VScroll1->value(), start + 2);
}

TEST_F(Form1WindowTest, AFingerThatGoesAlmostStraightDownScrollsDown) {
    const int row = form.area->VScroll1->value();
    turn(20, -120);
    EXPECT_EQ(form.area->VScroll1->value(), row + 3);
    EXPECT_EQ(form.area->HScroll1->value(), form.area->HScroll1->minimum());
    turn(-120, 20);
    EXPECT_EQ(form.area->HScroll1->value(), form.area->HScroll1->minimum() + 3);
    turn(0, -120, Qt::ShiftModifier);
    EXPECT_EQ(form.area->HScroll1->value(), form.area->HScroll1->minimum() + 6);
}

} // namespace
} // namespace velorin

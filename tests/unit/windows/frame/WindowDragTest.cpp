// Dragging and shaping the windows.
#include "windows/frame/WindowDrag.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace velorin {
namespace {

TEST(WindowDrag, ARightPressOnATitleDoesNotStartADrag) {
    QWidget window;
    auto* drag = new WindowDrag(&window);
    EXPECT_FALSE(drag->DragWindow(Qt::RightButton, QPoint(5, 5)));
    EXPECT_FALSE(drag->DragWindow(Qt::LeftButton | Qt::RightButton, QPoint(5, 5)));
    EXPECT_TRUE(drag->DragWindow(Qt::LeftButton, QPoint(5, 5)));
}

TEST(WindowDrag, TheWindowFollowsThePointerWhereNobodyElseMovesIt) {
    QWidget window;
    window.move(100, 100);
    QWidget title(&window);
    auto* drag = new WindowDrag(&window);
    drag->watch(&title);
    const auto send = [&](QEvent::Type type, QPoint place, Qt::MouseButton button,
                          Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(2, 2), QPointF(place), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&title, &event);
    };
    send(QEvent::MouseButtonPress, {110, 105}, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, {140, 95}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(130, 90));
    send(QEvent::MouseButtonRelease, {140, 95}, Qt::LeftButton, Qt::NoButton);
    send(QEvent::MouseMove, {300, 300}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(130, 90));
}

/// A title and its window at (100, 100), and the mouse on it.
struct Title {
    Title() {
        window.move(100, 100);
        makeDragHandle(label);
    }
    void send(QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(2, 2), QPointF(place), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&label, &event);
    }
    QWidget window;
    QWidget label{&window};
};

TEST(WindowDrag, ADragEndsWhereTheButtonIsReleased) {
    Title title;
    title.send(QEvent::MouseButtonPress, {110, 105}, Qt::LeftButton, Qt::LeftButton);
    title.send(QEvent::MouseButtonRelease, {160, 125}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(title.window.pos(), QPoint(150, 120));
}

TEST(WindowDrag, ADragHasEndedWhenTheButtonIsFoundUp) {
    Title title;
    title.send(QEvent::MouseButtonPress, {110, 105}, Qt::LeftButton, Qt::LeftButton);
    title.send(QEvent::MouseMove, {300, 300}, Qt::NoButton, Qt::MiddleButton);
    title.send(QEvent::MouseMove, {400, 400}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(title.window.pos(), QPoint(100, 100));
}

TEST(WindowDrag, TheSecondPressOfADoubleClickDragsToo) {
    Title title;
    title.send(QEvent::MouseButtonDblClick, {110, 105}, Qt::LeftButton, Qt::LeftButton);
    title.send(QEvent::MouseMove, {120, 105}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(title.window.pos(), QPoint(110, 100));
}

TEST(WindowDrag, AMaximisedWindowStays) {
    Title title;
    title.window.setWindowState(Qt::WindowMaximized);
    title.send(QEvent::MouseButtonPress, {110, 105}, Qt::LeftButton, Qt::LeftButton);
    title.send(QEvent::MouseMove, {200, 200}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(title.window.pos(), QPoint(100, 100));
}

TEST(WindowDrag, TopMostComesAndGoesAndKeepsThePlace) {
    QWidget window;
    window.move(40, 50);
    SetTopMost(window, true);
    EXPECT_TRUE(isTopMost(window));
    SetTopMost(window, false);
    EXPECT_FALSE(isTopMost(window));
    EXPECT_EQ(window.pos(), QPoint(40, 50));
}

TEST(WindowDrag, TopMostChangesWhileTheWindowIsShownAndHasTheKeyboard) {
    QWidget window;
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    const WId number = window.winId();
    for (const bool topmost : {true, false}) {
        SetTopMost(window, topmost);
        EXPECT_EQ(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), topmost);
        EXPECT_EQ(window.winId(), number);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(window.isActiveWindow());
    }
}

TEST(WindowDrag, TheRegionLeavesOutTheCornersOnly) {
    QWidget window;
    window.resize(200, 100);
    ApplyWindowRegion(window, 26);
    const QRegion region = window.mask();
    EXPECT_FALSE(region.contains(QPoint(0, 0)));
    EXPECT_FALSE(region.contains(QPoint(199, 99)));
    EXPECT_TRUE(region.contains(QPoint(13, 0)));
    EXPECT_TRUE(region.contains(QPoint(0, 13)));
    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 200, 100));
    ApplyWindowRegion(window, 0);
    EXPECT_TRUE(window.mask().isEmpty());
}

} // namespace
} // namespace velorin

// Which way the keys, the arrows and the wheel move a scroll bar.
#include "windows/frame/ScrollBar.h"
#include "windows/frame/Look.h"
#include "windows/frame/LookColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

using namespace velorin;

namespace {

void press(QWidget& bar, Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&bar, &event);
}

void click(QWidget& bar, QPointF place) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&bar, &event);
    }
}

void turn(QWidget& bar, int eighths) {
    QWheelEvent event(QPointF(2, 2), QPointF(2, 2), QPoint(), QPoint(0, eighths), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&bar, &event);
}

} // namespace

TEST(ScrollBar, OfEitherDirectionGoesOnByRightAndDownAndBackByLeftAndUp) {
    for (const auto direction : {Qt::Horizontal, Qt::Vertical}) {
        ScrollBar bar(direction, nullptr);
        bar.setRange(20, 300);
        bar.setPageStep(10);
        bar.setValue(100);
        press(bar, Qt::Key_Right);
        EXPECT_EQ(bar.value(), 101);
        press(bar, Qt::Key_Down);
        EXPECT_EQ(bar.value(), 102);
        press(bar, Qt::Key_Left);
        EXPECT_EQ(bar.value(), 101);
        press(bar, Qt::Key_Up);
        EXPECT_EQ(bar.value(), 100);
        press(bar, Qt::Key_PageDown);
        EXPECT_EQ(bar.value(), 110);
        press(bar, Qt::Key_PageUp);
        EXPECT_EQ(bar.value(), 100);
    }
}

TEST(ScrollBar, WithTheHighValueAtTheTopIsRaisedByWhatPointsUp) {
    ScrollBar bar(Qt::Vertical, nullptr, ScrollBar::Top::high);
    bar.setGeometry(0, 0, 18, 60);
    bar.setRange(0, 60);
    bar.setSingleStep(4);
    bar.setPageStep(4);
    bar.setValue(28);
    click(bar, QPointF(9, 2));
    EXPECT_EQ(bar.value(), 32);
    click(bar, QPointF(9, 58));
    EXPECT_EQ(bar.value(), 28);
    press(bar, Qt::Key_Up);
    EXPECT_EQ(bar.value(), 32);
    press(bar, Qt::Key_Down);
    EXPECT_EQ(bar.value(), 28);
    turn(bar, 120);
    EXPECT_EQ(bar.value(), 32);
    turn(bar, -120);
    EXPECT_EQ(bar.value(), 28);
    press(bar, Qt::Key_Home);
    EXPECT_EQ(bar.value(), 60);
    press(bar, Qt::Key_Up);
    EXPECT_EQ(bar.value(), 60);
    press(bar, Qt::Key_End);
    EXPECT_EQ(bar.value(), 0);
    press(bar, Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), 4);
}

// The arrows cover most of the border, and what is left would look like two brackets.
TEST(ScrollBar, WithTwoArrowsHasNoBorderWhileItIsDisabled) {
    applyLook(*qApp);
    QWidget window;
    ScrollBar bar(Qt::Vertical, &window);
    bar.setProperty("role", "spin");
    bar.setGeometry(10, 10, 18, 24);
    window.show();
    const auto has = [&bar](const QColor& colour) {
        const QImage shown = bar.grab().toImage();
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                if (shown.pixelColor(x, y) == colour)
                    return true;
        return false;
    };
    EXPECT_TRUE(has(look::edge));
    bar.setEnabled(false);
    EXPECT_FALSE(has(look::edge));
    EXPECT_FALSE(has(look::line));
    EXPECT_TRUE(has(look::ink600)) << "the ground of the bar";
}

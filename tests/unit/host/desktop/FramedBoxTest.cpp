// The frame of the message boxes.
#include "host/desktop/FramedBox.h"

#include "support/walk/TabWalkChecks.h"
#include "windows/frame/Look.h"
#include "windows/frame/LookColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

namespace velorin::host {
namespace {

struct FramedBoxTest : testing::Test {
    static void SetUpTestSuite() { applyLook(*qApp); }
    FramedBoxTest() {
        box.show();
        box.move(100, 100);
    }
    FramedBox box{QMessageBox::Information, "Velorin", "A sentence.", QMessageBox::Ok};
};

TEST_F(FramedBoxTest, HasNoFrameOfTheDesktopAndIsAboveTheToolWindows) {
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_EQ(box.windowTitle(), "Velorin");
}

TEST_F(FramedBoxTest, IsPaperBelowABandWithItsTitle) {
    const QImage shown = box.grab().toImage();
    const QColor band = shown.pixelColor(shown.width() / 2, 13);
    EXPECT_LT(band.lightness(), 100);
    EXPECT_EQ(shown.pixelColor(shown.width() / 2, 29), look::hint);
    int cream = 0;
    for (int x = 14; x < shown.width() / 2; ++x)
        cream += shown.pixelColor(x, 13).lightness() > 180 ? 1 : 0;
    EXPECT_GT(cream, 3) << "the letters of the title";
}

TEST_F(FramedBoxTest, ShowsAPictureOfTheProgram) {
    EXPECT_FALSE(box.iconPixmap().isNull());
    const FramedBox plain(QMessageBox::NoIcon, "Velorin", "A sentence.");
    EXPECT_TRUE(plain.iconPixmap().isNull());
    const FramedBox warning(QMessageBox::Warning, "Velorin", "A sentence.");
    EXPECT_NE(warning.iconPixmap().toImage(), box.iconPixmap().toImage());
}

TEST_F(FramedBoxTest, IsDraggedByItsBandOnly) {
    const QPoint before = box.pos();
    const auto drag = [this](QPoint from) {
        const auto send = [this](QEvent::Type type, QPoint place) {
            QMouseEvent event(type, place, box.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(&box, &event);
        };
        send(QEvent::MouseButtonPress, from);
        send(QEvent::MouseMove, from + QPoint(30, 20));
        send(QEvent::MouseButtonRelease, from);
    };
    drag({40, 40});
    EXPECT_EQ(box.pos(), before);
    drag({40, 10});
    EXPECT_EQ(box.pos(), before + QPoint(30, 20));
}

TEST_F(FramedBoxTest, TabReachesEachButton) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCoreApplication::processEvents();
    expectWalk(box);
    EXPECT_EQ(walkByTab(box).stops.size(), 3U);
}

} // namespace
} // namespace velorin::host

// The ring of the pen: its lines, and the cell that stays free.
#include "windows/pen/PenRing.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// The ring round column 2, line 1 of a box at 10, 20, on a ground of one colour.
struct RingStage {
    explicit RingStage(const QRect& cells, bool isHeld = false) {
        area.resize(120, 120);
        box.setGeometry(10, 20, 100, 90);
        area.setAutoFillBackground(true);
        QPalette ground;
        ground.setColor(QPalette::Window, QColor(1, 2, 3));
        area.setPalette(ground);
        ring.showRound(box, cells, isHeld);
        image = area.grab().toImage();
    }
    [[nodiscard]] QColor at(int x, int y) const { return image.pixelColor(x, y); }

    QWidget area;
    QWidget box{&area};
    PenRing ring{&area};
    QImage image;
};

TEST(PenRingTest, LinesLieRoundTheCellAndLeaveItFree) {
    const RingStage stage(QRect(24, 12, 12, 12)); // on the area from 34, 32
    const QColor ground(1, 2, 3);
    const QColor dark(10, 11, 32);
    const QColor sky(68, 204, 255);
    EXPECT_EQ(stage.at(40, 27), ground);
    EXPECT_EQ(stage.at(40, 28), QColor(Qt::white));
    EXPECT_EQ(stage.at(40, 29), dark);
    EXPECT_EQ(stage.at(40, 30), dark);
    EXPECT_EQ(stage.at(40, 31), sky);
    for (int y = 32; y < 44; ++y)
        for (int x = 34; x < 46; ++x)
            ASSERT_EQ(stage.at(x, y), ground) << x << ' ' << y;
    EXPECT_EQ(stage.at(40, 44), sky);
    EXPECT_EQ(stage.at(46, 38), sky);
    EXPECT_EQ(stage.at(48, 38), dark);
    EXPECT_EQ(stage.at(49, 38), QColor(Qt::white));
    EXPECT_EQ(stage.at(50, 38), ground);
    EXPECT_EQ(stage.at(33 - 3, 31 - 3), ground) << "the corner is round";
}

TEST(PenRingTest, LightIsCreamWhileHeldAndTheRingGrows) {
    const RingStage stage(QRect(24, 12, 48, 12), true);
    EXPECT_EQ(stage.at(40, 31), QColor(255, 255, 192));
    EXPECT_EQ(stage.at(81, 38), QColor(1, 2, 3));
    EXPECT_EQ(stage.at(82, 38), QColor(255, 255, 192));
}

TEST(PenRingTest, LinesAreWholeDevicePixelsAtEveryScale) {
    EXPECT_EQ(PenRing::linesAt(1.0), (PenRing::Lines{1, 2, 1}));
    EXPECT_EQ(PenRing::linesAt(1.25), (PenRing::Lines{2, 3, 2}));
    EXPECT_EQ(PenRing::linesAt(1.5), (PenRing::Lines{2, 3, 2}));
    EXPECT_EQ(PenRing::linesAt(2.0), (PenRing::Lines{2, 4, 2}));
}

TEST(PenRingTest, MousePassesThrough) {
    RingStage stage(QRect(24, 12, 12, 12));
    EXPECT_EQ(stage.area.childAt(40, 30), &stage.box);
}

} // namespace
} // namespace velorin

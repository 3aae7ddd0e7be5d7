// The highlight under the pointer if the window system sends no leave event.
#include "windows/frame/HoverKeeper.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QWindow>

namespace velorin {
namespace {

class HoverKeeperTest : public testing::Test {
protected:
    HoverKeeper keeper;
    QWidget window;
    QWidget* control = new QWidget(&window);

    HoverKeeperTest() {
        window.setGeometry(100, 100, 200, 200);
        control->setGeometry(20, 20, 40, 40);
        window.show();
        enter();
    }

    void enter() {
        QEnterEvent event(QPointF(5, 5), QPointF(25, 25), QPointF(125, 125));
        control->setAttribute(Qt::WA_UnderMouse);
        QApplication::sendEvent(control, &event);
    }
    void moveTo(QPoint place, Qt::MouseButtons buttons = Qt::NoButton) {
        QWindow elsewhere;
        QMouseEvent event(QEvent::MouseMove, place, window.mapToGlobal(place), Qt::NoButton,
                          buttons, {});
        QApplication::sendEvent(&elsewhere, &event);
    }
};

TEST_F(HoverKeeperTest, AMoveElsewhereTakesTheHighlightAway) {
    moveTo(QPoint(150, 150));
    EXPECT_FALSE(control->underMouse());
}

TEST_F(HoverKeeperTest, AMoveOverTheControlLeavesIt) {
    moveTo(QPoint(30, 30));
    EXPECT_TRUE(control->underMouse());
}

TEST_F(HoverKeeperTest, APressedControlKeepsIt) {
    moveTo(QPoint(150, 150), Qt::LeftButton);
    EXPECT_TRUE(control->underMouse());
}

TEST_F(HoverKeeperTest, AControlThatIsGoneIsForgotten) {
    delete control;
    moveTo(QPoint(150, 150));
}

} // namespace
} // namespace velorin

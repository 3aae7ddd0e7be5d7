// The second click of a double click whose first one closed a window.
#include "windows/frame/SecondClick.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWindow>

namespace velorin {
namespace {

class WindowBelow : public QWindow {
public:
    int presses = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
};

class SecondClickTest : public testing::Test {
protected:
    SecondClick second;
    WindowBelow below;

    template <class Use>
    static void with(QEvent::Type type, quint64 timeMs, double x, Use use) {
        QMouseEvent event(type, QPointF(x, 5), QPointF(x, 5), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        event.setTimestamp(timeMs);
        use(event);
    }
    void send(QEvent::Type type, quint64 timeMs, double x = 5) {
        with(type, timeMs, x,
             [this](QMouseEvent& event) { QCoreApplication::sendEvent(&below, &event); });
    }
    void closeWindow() {
        with(QEvent::MouseButtonPress, 1000, 5,
             [this](const QMouseEvent& press) { second.follows(press); });
    }
};

TEST_F(SecondClickTest, ItDoesNotReachTheWindowBelow) {
    closeWindow();
    send(QEvent::MouseButtonPress, 1200);
    send(QEvent::MouseButtonDblClick, 1200);
    send(QEvent::MouseButtonRelease, 1250);
    EXPECT_EQ(below.presses, 0);
    EXPECT_EQ(below.releases, 0);
}

TEST_F(SecondClickTest, AThirdClickReachesIt) {
    closeWindow();
    send(QEvent::MouseButtonPress, 1200);
    send(QEvent::MouseButtonRelease, 1250);
    send(QEvent::MouseButtonPress, 1300);
    send(QEvent::MouseButtonRelease, 1350);
    EXPECT_EQ(below.presses, 1);
    EXPECT_EQ(below.releases, 1);
}

TEST_F(SecondClickTest, AClickThatComesLaterOrElsewhereReachesIt) {
    closeWindow();
    send(QEvent::MouseButtonPress, 3000);
    closeWindow();
    send(QEvent::MouseButtonPress, 1200, 105);
    EXPECT_EQ(below.presses, 2);
}

TEST_F(SecondClickTest, TheReleaseOfTheFirstClickReachesIt) {
    closeWindow();
    send(QEvent::MouseButtonRelease, 1100);
    EXPECT_EQ(below.releases, 1);
}

} // namespace
} // namespace velorin

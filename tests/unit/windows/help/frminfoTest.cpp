// The hint window: it waits a second, shows a hint for three seconds, and shows a lesson until the
// user closes it.
#include "windows/help/frminfo.h"

#include "support/ScriptedPlatform.h"
#include "windows/frame/SkinnedFrame.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>
#include <QWidget>

namespace velorin {
namespace {

using scripted::nanosecondsPerSecond;

class frminfoTest : public testing::Test {
protected:
    scripted::ScriptedPlatform host;
    FrameState frames;
    frminfo info{host.platform, frames};
    QWidget button;
    QWidget other;

    [[nodiscard]] bool shown() { return info.window()->isVisible(); }
    [[nodiscard]] std::string text() {
        return info.window()->findChild<QLabel*>("Label1")->text().toStdString();
    }
    [[nodiscard]] QWidget* label() { return info.window()->findChild<QLabel*>("Label1"); }
};

TEST_F(frminfoTest, AHintShowsAfterASecondAndHoldsNobodyUp) {
    info.showHint(&button, "a\r\nb", QPoint(30, 40));
    EXPECT_EQ(host.time.now(), 0);
    host.time.pass(nanosecondsPerSecond - 1);
    EXPECT_FALSE(shown());
    host.time.pass(1);
    EXPECT_TRUE(shown());
    EXPECT_EQ(text(), "a\nb");
    EXPECT_EQ(info.window()->pos(), QPoint(30, 40));
}

TEST_F(frminfoTest, AHintStandsForThreeSecondsAndIsThenUnloaded) {
    info.showHint(&button, "hint", {});
    host.time.pass(4 * nanosecondsPerSecond - 1);
    EXPECT_TRUE(shown());
    host.time.pass(1);
    EXPECT_FALSE(shown());
    EXPECT_FALSE(info.isLoaded());
    EXPECT_EQ(text(), "");
}

TEST_F(frminfoTest, AMoveOverTheSameControlDoesNotProlongAHint) {
    info.showHint(&button, "hint", {});
    host.time.pass(3 * nanosecondsPerSecond);
    info.showHint(&button, "hint", {});
    EXPECT_TRUE(shown());
    host.time.pass(nanosecondsPerSecond);
    EXPECT_FALSE(shown());
}

TEST_F(frminfoTest, APointerThatLeavesDuringTheSecondSeesNoHint) {
    info.showHint(&button, "hint", {});
    host.time.pass(nanosecondsPerSecond / 2);
    info.unload();
    EXPECT_FALSE(info.isLoaded());
    host.time.pass(5 * nanosecondsPerSecond);
    EXPECT_FALSE(shown());
}

TEST_F(frminfoTest, AMoveOverTheSameControlDuringTheSecondChangesNothing) {
    info.showHint(&button, "hint", {});
    host.time.pass(nanosecondsPerSecond / 2);
    info.showHint(&button, "hint", {});
    host.time.pass(nanosecondsPerSecond / 2);
    EXPECT_TRUE(shown());
}

TEST_F(frminfoTest, AnotherControlDuringTheSecondStartsItsOwn) {
    info.showHint(&button, "first", {});
    host.time.pass(nanosecondsPerSecond / 2);
    info.unload();
    info.showHint(&other, "second", {});
    host.time.pass(nanosecondsPerSecond - 1);
    EXPECT_FALSE(shown());
    host.time.pass(1);
    EXPECT_TRUE(shown());
    EXPECT_EQ(text(), "second");
}

TEST_F(frminfoTest, ALessonTakesThePlaceOfAHintThatWaits) {
    info.showHint(&button, "hint", {});
    host.time.plan(2 * nanosecondsPerSecond, [this] {
        EXPECT_EQ(text(), "step");
        info.imgTitleClose_Click();
    });
    EXPECT_TRUE(info.showLesson("step", 0.0F, 0.0F));
    host.time.pass(nanosecondsPerSecond);
    EXPECT_FALSE(shown());
}

TEST_F(frminfoTest, AHintWhoseButtonNoScreenWouldShowComesIntoTheScreen) {
    info.load();
    info.showHint(&button, "hint", {900, 40});
    EXPECT_EQ(info.window()->geometry().right() + 1, 1024);
    EXPECT_EQ(info.window()->y(), 40);
}

TEST_F(frminfoTest, LoadingTakesTheSecondAndShowsNothing) {
    host.time.plan(nanosecondsPerSecond / 2, [this] { EXPECT_TRUE(info.isLoaded()); });
    info.load();
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond);
    EXPECT_TRUE(info.isLoaded());
    EXPECT_FALSE(shown());
    EXPECT_EQ(text(), "");
    info.load();
    info.showHint(&button, "hint", {});
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond);
    EXPECT_TRUE(shown());
}

// One at the load, one for each change of the text, the emptying at the end included.
TEST_F(frminfoTest, EachOutlineOfTheWindowIsCounted) {
    info.load();
    EXPECT_EQ(frames.RegionCount, 1);
    info.showHint(&button, "hint", {});
    EXPECT_EQ(frames.RegionCount, 2);
    info.showHint(&other, "hint", {});
    EXPECT_EQ(frames.RegionCount, 2);
    host.time.pass(3 * nanosecondsPerSecond);
    EXPECT_FALSE(info.isLoaded());
    EXPECT_EQ(frames.RegionCount, 3);
}

TEST_F(frminfoTest, TheWindowIsOnePixelHigherThanItsText) {
    info.load();
    info.showHint(&button, "one line", {});
    EXPECT_EQ(info.window()->height(), label()->height() + 1);
    EXPECT_EQ(info.window()->width(), 360);
    const int oneLine = label()->height();
    info.showHint(&button, "one\r\ntwo", {});
    EXPECT_GT(label()->height(), oneLine);
    EXPECT_EQ(info.window()->height(), label()->height() + 1);
}

TEST_F(frminfoTest, ALessonStaysUntilTheUserClosesIt) {
    bool open = false;
    host.time.plan(60 * nanosecondsPerSecond, [this, &open] {
        open = shown() && info.isLessonOpen();
        info.unload(); // as the main window does when the pointer leaves a button
        info.window()->findChild<QToolButton*>("imgTitleClose")->click();
    });
    EXPECT_TRUE(info.showLesson("step", 150.0F, 300.0F));
    EXPECT_TRUE(open);
    EXPECT_EQ(host.time.now(), 60 * nanosecondsPerSecond);
    EXPECT_FALSE(shown());
    EXPECT_EQ(info.window()->pos(), QPoint(10, 20));
    EXPECT_EQ(info.window()->width(), 460);
}

TEST_F(frminfoTest, TheEscapeKeyDeclinesTheStepOfALesson) {
    const auto endWith = [this](Qt::Key key) {
        host.time.plan(2 * nanosecondsPerSecond,
                       [this, key] { QTest::keyClick(info.window(), key); });
        return info.showLesson("step", 0.0F, 0.0F);
    };
    EXPECT_TRUE(endWith(Qt::Key_Return));
    EXPECT_FALSE(endWith(Qt::Key_Escape));
    EXPECT_FALSE(shown());
    EXPECT_TRUE(endWith(Qt::Key_Space));
}

// The place is on a screen that was removed; the window would block all others.
TEST_F(frminfoTest, ALessonAlwaysHasItsCloseButtonOnTheScreen) {
    const auto buttonOf = [this](float left, float top) {
        QRect button;
        host.time.plan(2 * nanosecondsPerSecond, [this, &button] {
            const QWidget* close = info.window()->findChild<QToolButton*>("imgTitleClose");
            button = QRect(close->mapToGlobal(QPoint(0, 0)), close->size());
            info.imgTitleClose_Click();
        });
        EXPECT_TRUE(info.showLesson("step", left, top));
        return button;
    };
    const QRect screen(0, 0, 1024, 768);
    EXPECT_TRUE(screen.contains(buttonOf(-15'000.0F, 300.0F)));
    EXPECT_TRUE(screen.contains(buttonOf(15'000.0F, 300.0F)));
    EXPECT_TRUE(screen.contains(buttonOf(300.0F, -300.0F)));
    EXPECT_TRUE(screen.contains(buttonOf(300.0F, 12'000.0F)));
}

TEST_F(frminfoTest, ALessonDimsTheWindowsThatTakeNoClicksMeanwhile) {
    const auto shade = [](QWidget& window) { return qGray(window.grab().toImage().pixel(20, 20)); };
    button.setStyleSheet("background: #FFFFFF;");
    other.setStyleSheet("background: #FFFFFF;");
    button.resize(60, 60);
    button.show();
    ASSERT_EQ(shade(button), 255);
    host.time.plan(2 * nanosecondsPerSecond, [this, shade] {
        other.resize(60, 60);
        other.show();
        EXPECT_LT(shade(button), 180);
        EXPECT_LT(shade(other), 180) << "shown later";
        other.resize(200, 200);
        EXPECT_LT(qGray(other.grab().toImage().pixel(190, 190)), 180);
        EXPECT_EQ(button.childAt(20, 20), nullptr) << "the pane takes no mouse";
        EXPECT_EQ(info.window()->findChild<QWidget*>("veil"), nullptr);
        info.imgTitleClose_Click();
    });
    EXPECT_TRUE(info.showLesson("step", 0.0F, 0.0F));
    EXPECT_EQ(shade(button), 255);
    EXPECT_EQ(shade(other), 255);
}

TEST_F(frminfoTest, TheTitleBandMovesALessonAndDoesNotCloseIt) {
    host.time.plan(2 * nanosecondsPerSecond, [this] {
        QWidget& lesson = *info.window();
        const QPoint before = lesson.pos();
        const auto send = [&lesson](QEvent::Type type, QPoint onScreen) {
            const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, lesson.mapFromGlobal(onScreen), onScreen,
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                              {});
            QCoreApplication::sendEvent(&lesson, &event);
        };
        const QPoint grip = before + QPoint(100, 12);
        send(QEvent::MouseButtonPress, grip);
        send(QEvent::MouseMove, grip + QPoint(40, 30));
        send(QEvent::MouseButtonRelease, grip + QPoint(40, 30));
        EXPECT_EQ(lesson.pos(), before + QPoint(40, 30));
        EXPECT_TRUE(info.isLessonOpen());
        info.imgTitleClose_Click();
    });
    EXPECT_TRUE(info.showLesson("step", 150.0F, 300.0F));
}

TEST_F(frminfoTest, TheEndOfTheProgramEndsALesson) {
    host.time.plan(2 * nanosecondsPerSecond, [this] { host.time.end(); });
    static_cast<void>(info.showLesson("step", 0.0F, 0.0F));
    EXPECT_FALSE(shown());
    EXPECT_FALSE(info.isLessonOpen());
}

} // namespace
} // namespace velorin

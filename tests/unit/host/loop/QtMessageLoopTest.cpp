// The message loop and the timers on Qt.
#include "host/loop/QtMessageLoop.h"
#include "host/loop/QtTimers.h"
#include "host/process/SystemClock.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <memory>

using testing::ElementsAre;

namespace velorin::host {
namespace {

constexpr std::int64_t oneMs = 1'000'000;

/// A stand-in for a window that requests painting.
struct Painted : QObject {
    int times = 0;
    void ask() { QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest)); }
    bool event(QEvent* event) override {
        times += event->type() == QEvent::UpdateRequest ? 1 : 0;
        return QObject::event(event);
    }
};

struct QtMessageLoopTest : testing::Test {
    int argc = 1;
    char name[8] = "velorin";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    SystemClock clock;
    QtMessageLoop loop{clock};
};

TEST_F(QtMessageLoopTest, AWaitEndsAtItsDeadlineAndNotBefore) {
    const std::int64_t end = clock.QueryPerformanceCounter() + 20 * oneMs;
    while (clock.QueryPerformanceCounter() < end)
        loop.waitUntil(end);
    EXPECT_GE(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtMessageLoopTest, AWaitReturnsAfterAnEvent) {
    bool served = false;
    QTimer::singleShot(5, [&served] { served = true; });
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    while (!served)
        loop.waitUntil(end);
    EXPECT_LT(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtMessageLoopTest, AYieldDefersPaintingToTheNextWait) {
    Painted window;
    bool served = false;
    QTimer::singleShot(0, [&served] { served = true; });
    window.ask();
    loop.Yield();
    EXPECT_TRUE(served) << "all else passes";
    EXPECT_EQ(window.times, 0);
    loop.waitUntil(clock.QueryPerformanceCounter() + 1000 * oneMs);
    EXPECT_EQ(window.times, 1);
}

TEST_F(QtMessageLoopTest, AHandlerThatNeverWaitsIsPaintedAllTheSame) {
    Painted window;
    window.ask();
    while (window.times == 0)
        loop.Yield();
    EXPECT_EQ(window.times, 1);
}

TEST_F(QtMessageLoopTest, ADialogOpenedInAYieldIsPainted) {
    Painted window;
    int seenInDialog = 0;
    QTimer::singleShot(0, [&] {
        QEventLoop dialog;
        window.ask();
        QTimer::singleShot(0, &dialog, &QEventLoop::quit);
        dialog.exec();
        seenInDialog = window.times;
    });
    loop.Yield();
    EXPECT_EQ(seenInDialog, 1);
}

TEST_F(QtMessageLoopTest, AWaitInAHandlerInsideAYieldPaints) {
    Painted window;
    int seenInWait = 0;
    window.ask();
    QTimer::singleShot(0, [&] {
        window.ask();
        loop.waitUntil(clock.QueryPerformanceCounter() + 1000 * oneMs);
        seenInWait = window.times;
    });
    loop.Yield();
    EXPECT_GT(seenInWait, 0);
}

TEST_F(QtMessageLoopTest, AWindowThatIsDestroyedBeforeItsPaintingIsSkipped) {
    auto window = std::make_unique<Painted>();
    window->ask();
    QTimer::singleShot(0, [&window] { window.reset(); });
    loop.Yield();
    EXPECT_EQ(window, nullptr);
    loop.waitUntil(clock.QueryPerformanceCounter() + oneMs);
}

TEST_F(QtMessageLoopTest, ARestSleepsAMillisecondAndProcessesEvents) {
    int served = 0;
    for (int i = 0; i < 3; ++i)
        QTimer::singleShot(0, [&served] { ++served; });
    const std::int64_t start = clock.QueryPerformanceCounter();
    loop.rest();
    EXPECT_GE(clock.QueryPerformanceCounter(), start + oneMs);
    EXPECT_EQ(served, 3);
}

TEST_F(QtMessageLoopTest, WaitsReturnAtOnceAfterTheEnd) {
    loop.end();
    EXPECT_TRUE(loop.isEnding());
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    loop.waitUntil(end);
    loop.rest();
    EXPECT_LT(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtMessageLoopTest, TimersFireInOrderUnlessTheyAreCancelled) {
    QtTimers timers;
    std::vector<int> fired;
    const int late = timers.after(10'000, [&fired] { fired.push_back(10'000); });
    const int cancelled = timers.after(2, [&fired] { fired.push_back(2); });
    timers.after(4, [&fired] { fired.push_back(4); });
    timers.cancel(cancelled);
    timers.cancel(12345);
    const auto waitFor = [this, &fired](std::size_t count) {
        while (fired.size() < count)
            loop.waitUntil(clock.QueryPerformanceCounter() + 50 * oneMs);
    };
    waitFor(1);
    EXPECT_THAT(fired, ElementsAre(4)) << "though it was set after the late one";
    timers.cancel(late);
    timers.after(8, [&fired] { fired.push_back(8); });
    waitFor(2);
    EXPECT_THAT(fired, ElementsAre(4, 8));
}

} // namespace
} // namespace velorin::host

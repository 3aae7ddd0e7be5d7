// The message loop on Qt.
#include "host/loop/QtMessageLoop.h"

#include "host/process/ThreadPriority.h"
#include "platform/Clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <cassert>
#include <chrono>
#include <thread>

namespace velorin::host {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t nanosecondsPerMs = 1'000'000;

/// A timer of the window system wakes up to two milliseconds late.
constexpr std::int64_t timerEarly = 2 * nanosecondsPerMs;

/// A sleep of the thread ends some 50 us late, so the last of it is a busy wait.
constexpr std::int64_t sleepEarly = 60'000;

} // namespace

QtMessageLoop::QtMessageLoop(platform::Clock& clock) : clock_(clock) {
    keepTimeOnThisThread();
    wake_.setTimerType(Qt::PreciseTimer);
    wake_.setSingleShot(true);
    QObject::connect(&wake_, &QTimer::timeout, [this] { woken_ = true; });
}

void QtMessageLoop::Yield() {
    assert(owner_.isCaller());
    if (ending_)
        return;
    const DeferredPainting::YieldScope yielding(painting_);
    QCoreApplication::processEvents();
}

void QtMessageLoop::waitUntil(std::int64_t counter) {
    assert(owner_.isCaller());
    if (ending_ || nanosecondsTo(counter) <= 0)
        return;
    const DeferredPainting::WaitScope waiting(painting_);
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    if (dispatcher == nullptr || dispatcher->processEvents(QEventLoop::AllEvents) || ending_)
        return;
    if (serveUntilNear(counter))
        return;
    sleepRest(counter);
}

void QtMessageLoop::rest() {
    const std::int64_t end =
        clock_.QueryPerformanceCounter() + clock_.QueryPerformanceFrequency() / 1000;
    while (!ending_ && nanosecondsTo(end) > 0)
        waitUntil(end);
}

/// True if an event was processed or the program is ending.
bool QtMessageLoop::serveUntilNear(std::int64_t counter) {
    const std::int64_t sleepMs = (nanosecondsTo(counter) - timerEarly) / nanosecondsPerMs;
    if (sleepMs <= 0)
        return false;
    woken_ = false;
    wake_.start(std::chrono::milliseconds(sleepMs));
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
    wake_.stop();
    return !woken_ || ending_;
}

void QtMessageLoop::sleepRest(std::int64_t counter) {
    const std::int64_t rest = nanosecondsTo(counter) - sleepEarly;
    if (rest > 0)
        std::this_thread::sleep_for(std::chrono::nanoseconds(rest));
    while (nanosecondsTo(counter) > 0) {
    }
}

std::int64_t QtMessageLoop::nanosecondsTo(std::int64_t counter) {
    const std::int64_t ticks = counter - clock_.QueryPerformanceCounter();
    const std::int64_t frequency = clock_.QueryPerformanceFrequency();
    if (frequency <= 0)
        return 0;
    // In two parts, so that a wait of days does not overflow.
    return ticks / frequency * nanosecondsPerSecond +
           ticks % frequency * nanosecondsPerSecond / frequency;
}

void QtMessageLoop::end() {
    assert(owner_.isCaller());
    ending_ = true;
    // Not `quit`, which would first ask the windows to close.
    QCoreApplication::exit();
}

} // namespace velorin::host

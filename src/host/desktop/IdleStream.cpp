// Wakes the stream at the user's events.
#include "host/desktop/IdleStream.h"

#include "host/sound/HostSound.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>

namespace velorin::host {

IdleStream::IdleStream(HostSound& sound, std::function<bool()> isPlaying)
    : sound_(sound), isPlaying_(std::move(isPlaying)) {
    QObject::connect(&check_, &QTimer::timeout, this, [this] {
        if (!isPlaying_())
            sound_.idleIfQuiet();
        sound_.checkCard();
        setInterval();
    });
    check_.setTimerType(Qt::VeryCoarseTimer);
    setInterval();
    check_.start();
    QCoreApplication::instance()->installEventFilter(this);
}

IdleStream::~IdleStream() {
    QCoreApplication::instance()->removeEventFilter(this);
}

// A running stream wakes the process far more often than this, so checking each second costs
// nothing and a card that comes back is heard soon. There is no card to check while the stream is
// idle.
void IdleStream::setInterval() {
    using namespace std::chrono_literals;
    const auto interval = sound_.isIdle() ? 5s : 1s;
    if (check_.intervalAsDuration() != interval)
        check_.setInterval(interval);
}

bool IdleStream::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Enter:
    case QEvent::Wheel:
        sound_.wake();
        break;
    default:
        break;
    }
    return false;
}

} // namespace velorin::host

// Watching the user's events for the stream.
#include "host/StreamRest.h"

#include "host/HostSound.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>

namespace velorin::host {

StreamRest::StreamRest(HostSound& sound, std::function<bool()> isPlaying)
    : sound_(sound), isPlaying_(std::move(isPlaying)) {
    QObject::connect(&look_, &QTimer::timeout, this, [this] {
        if (!isPlaying_())
            sound_.restIfQuiet();
        sound_.lookAfterCard();
        setPace();
    });
    look_.setTimerType(Qt::VeryCoarseTimer);
    setPace();
    look_.start();
    QCoreApplication::instance()->installEventFilter(this);
}

StreamRest::~StreamRest() {
    QCoreApplication::instance()->removeEventFilter(this);
}

// A stream that runs wakes the process far more often than this, so a card that comes back is heard
// soon. While it rests there is nothing to look after.
void StreamRest::setPace() {
    using namespace std::chrono_literals;
    const auto pace = sound_.isResting() ? 5s : 1s;
    if (look_.intervalAsDuration() != pace)
        look_.setInterval(pace);
}

bool StreamRest::eventFilter(QObject*, QEvent* event) {
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

// Watching the user's events for the stream.
#include "host/StreamRest.h"

#include "host/HostSound.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>

namespace velorin::host {

StreamRest::StreamRest(HostSound& sound, std::function<bool()> isPlaying)
    : sound_(sound), isPlaying_(std::move(isPlaying)) {
    using namespace std::chrono_literals;
    QObject::connect(&look_, &QTimer::timeout, this, [this] {
        if (!isPlaying_())
            sound_.restIfQuiet();
        sound_.lookAfterCard();
    });
    look_.setTimerType(Qt::VeryCoarseTimer);
    look_.start(5s);
    QCoreApplication::instance()->installEventFilter(this);
}

StreamRest::~StreamRest() {
    QCoreApplication::instance()->removeEventFilter(this);
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

// The filter over the application's requests for painting.
#include "host/HeldPainting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <utility>

namespace velorin::host {

namespace {

constexpr int noLevel = -1;
constexpr int longestHoldMs = 20;

} // namespace

HeldPainting::HeldPainting() : heldAtLevel_(noLevel) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldPainting::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::UpdateRequest ||
        heldAtLevel_ != QThread::currentThread()->loopLevel())
        return QObject::eventFilter(watched, event);
    if (!heldSince_.isValid())
        heldSince_.start();
    held_.emplace_back(watched);
    return true;
}

// A window counts its request as on the way until it has painted, so it must get one back.
void HeldPainting::giveBack() {
    for (const QPointer<QObject>& window : std::exchange(held_, {})) {
        if (window)
            QCoreApplication::postEvent(window, new QEvent(QEvent::UpdateRequest),
                                        Qt::LowEventPriority);
    }
}

HeldPainting::Yielding::Yielding(HeldPainting& painting)
    : painting_(painting), outerLevel_(painting.heldAtLevel_) {
    const bool longEnough =
        painting.heldSince_.isValid() && painting.heldSince_.hasExpired(longestHoldMs);
    if (longEnough)
        painting.heldSince_.invalidate();
    painting.heldAtLevel_ = longEnough ? noLevel : QThread::currentThread()->loopLevel();
}

HeldPainting::Yielding::~Yielding() {
    painting_.heldAtLevel_ = outerLevel_;
    painting_.giveBack();
}

HeldPainting::Waiting::Waiting(HeldPainting& painting)
    : painting_(painting), outerLevel_(painting.heldAtLevel_) {
    painting.heldSince_.invalidate();
    painting.heldAtLevel_ = noLevel;
    painting.giveBack();
}

HeldPainting::Waiting::~Waiting() {
    painting_.heldAtLevel_ = outerLevel_;
}

} // namespace velorin::host

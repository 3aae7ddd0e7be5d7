// The event filter for the application's paint requests.
#include "host/loop/DeferredPainting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <utility>

namespace velorin::host {

namespace {

constexpr int noLevel = -1;
constexpr int longestDeferralMs = 20;

} // namespace

DeferredPainting::DeferredPainting() : deferringLevel_(noLevel) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool DeferredPainting::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::UpdateRequest ||
        deferringLevel_ != QThread::currentThread()->loopLevel())
        return QObject::eventFilter(watched, event);
    if (!deferredSince_.isValid())
        deferredSince_.start();
    deferred_.emplace_back(watched);
    return true;
}

// A window posts no new request until it has painted, so it must get its request back.
void DeferredPainting::repostDeferred() {
    for (const QPointer<QObject>& window : std::exchange(deferred_, {})) {
        if (window)
            QCoreApplication::postEvent(window, new QEvent(QEvent::UpdateRequest),
                                        Qt::LowEventPriority);
    }
}

DeferredPainting::YieldScope::YieldScope(DeferredPainting& painting)
    : painting_(painting), outerLevel_(painting.deferringLevel_) {
    const bool longEnough =
        painting.deferredSince_.isValid() && painting.deferredSince_.hasExpired(longestDeferralMs);
    if (longEnough)
        painting.deferredSince_.invalidate();
    painting.deferringLevel_ = longEnough ? noLevel : QThread::currentThread()->loopLevel();
}

DeferredPainting::YieldScope::~YieldScope() {
    painting_.deferringLevel_ = outerLevel_;
    painting_.repostDeferred();
}

DeferredPainting::WaitScope::WaitScope(DeferredPainting& painting)
    : painting_(painting), outerLevel_(painting.deferringLevel_) {
    painting.deferredSince_.invalidate();
    painting.deferringLevel_ = noLevel;
    painting.repostDeferred();
}

DeferredPainting::WaitScope::~WaitScope() {
    painting_.deferringLevel_ = outerLevel_;
}

} // namespace velorin::host

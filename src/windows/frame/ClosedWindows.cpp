// Destroys closed windows.
#include "windows/frame/ClosedWindows.h"

#include "windows/frame/HoldingLoop.h"

#include <QAbstractEventDispatcher>
#include <QThread>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace velorin {

// Checks in each round of the dispatcher, even if events never run out and it never sleeps. A timer
// of 0 ms would wait until the events run out.
ClosedWindows::ClosedWindows(HoldingLoop& loop) : loop_(loop) {
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    for (const auto signal :
         {&QAbstractEventDispatcher::awake, &QAbstractEventDispatcher::aboutToBlock})
        QObject::connect(dispatcher, signal, &dispatcherWatch_, [this] { destroyFree(); });
}

void ClosedWindows::noteMade(const QWidget& window) {
    madeAt_[&window] = loop_.now();
}

void ClosedWindows::destroyLater(std::unique_ptr<QWidget> window) {
    if (!window)
        return;
    window->hide();
    const auto made = madeAt_.extract(window.get());
    closed_.push_back({std::move(window), made.empty() ? 0 : made.mapped()});
}

// Called between two rounds of the dispatcher. Waiting handlers are on the stack. So may be the
// nested loop of a dialog or a menu; nothing is known of its handlers, so nothing is destroyed
// then.
void ClosedWindows::destroyFree() {
    if (closed_.empty() || QThread::currentThread()->loopLevel() > 1)
        return;
    const auto free = std::partition(closed_.begin(), closed_.end(), [this](const Closed& closed) {
        return loop_.mayHold(closed.window.get(), closed.madeAt);
    });
    const std::vector<Closed> destroyed(std::make_move_iterator(free),
                                        std::make_move_iterator(closed_.end()));
    closed_.erase(free, closed_.end());
}

} // namespace velorin

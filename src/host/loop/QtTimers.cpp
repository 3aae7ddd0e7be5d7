// Timers on Qt.
#include "host/loop/QtTimers.h"

namespace velorin::host {

int QtTimers::after(int milliseconds, std::function<void()> fire) {
    const int number = ++lastNumber_;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, [this, number] { run(number); });
    timer->start(milliseconds);
    pending_[number] = {std::move(timer), std::move(fire)};
    return number;
}

void QtTimers::cancel(int number) {
    const auto known = pending_.find(number);
    if (known == pending_.end())
        return;
    // This may run inside the signal of the timer itself.
    known->second.timer->stop();
    known->second.timer.release()->deleteLater();
    pending_.erase(known);
}

void QtTimers::run(int number) {
    const auto known = pending_.find(number);
    if (known == pending_.end())
        return;
    const std::function<void()> fire = std::move(known->second.fire);
    cancel(number);
    fire();
}

} // namespace velorin::host

// Signals as readable events: they are blocked in every thread and read from a descriptor.
#include "host/loop/SignalListener.h"

#include "host/process/TerminationSignals.h"

#include <QSocketNotifier>

#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace velorin::host {

SignalListener::SignalListener() : blocked_(blockTerminationSignals()) {
    descriptor_ = signalfd(-1, &blocked_, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0)
        unblock();
}

SignalListener::~SignalListener() {
    notifier_.reset();
    if (descriptor_ >= 0)
        close(descriptor_);
}

void SignalListener::unblock() {
    pthread_sigmask(SIG_UNBLOCK, &blocked_, nullptr);
}

void SignalListener::listen(std::function<void()> onSignal) {
    if (descriptor_ < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                     [this, onSignal = std::move(onSignal)] {
                         signalfd_siginfo signal{};
                         if (read(descriptor_, &signal, sizeof signal) != sizeof signal)
                             return;
                         unblock();
                         onSignal();
                     });
}

} // namespace velorin::host

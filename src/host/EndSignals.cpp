// Signals as readable events: they are held back from every thread, and read from a descriptor.
#include "host/EndSignals.h"

#include "host/SignalSet.h"

#include <QSocketNotifier>

#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace velorin::host {

EndSignals::EndSignals() : taken_(holdBackEndSignals()) {
    descriptor_ = signalfd(-1, &taken_, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0)
        letThrough();
}

EndSignals::~EndSignals() {
    notifier_.reset();
    if (descriptor_ >= 0)
        close(descriptor_);
}

void EndSignals::letThrough() {
    pthread_sigmask(SIG_UNBLOCK, &taken_, nullptr);
}

void EndSignals::listen(std::function<void()> onSignal) {
    if (descriptor_ < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                     [this, onSignal = std::move(onSignal)] {
                         signalfd_siginfo signal{};
                         if (read(descriptor_, &signal, sizeof signal) != sizeof signal)
                             return;
                         letThrough();
                         onSignal();
                     });
}

} // namespace velorin::host

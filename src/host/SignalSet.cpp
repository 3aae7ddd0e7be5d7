// A signal that is ignored at the start stays ignored, as `nohup` wants it.
#include "host/SignalSet.h"

#include <pthread.h>

namespace velorin::host {

sigset_t holdBackEndSignals() {
    sigset_t held{};
    sigemptyset(&held);
    for (const int number : endSignals) {
        struct sigaction present {};
        if (sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            sigaddset(&held, number);
    }
    pthread_sigmask(SIG_BLOCK, &held, nullptr);
    return held;
}

} // namespace velorin::host

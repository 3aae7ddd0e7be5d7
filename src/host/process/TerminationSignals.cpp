// A signal that is ignored at the start stays ignored, as `nohup` expects.
#include "host/process/TerminationSignals.h"

#include <pthread.h>

namespace velorin::host {

sigset_t blockTerminationSignals() {
    sigset_t blocked{};
    sigemptyset(&blocked);
    for (const int number : terminationSignals) {
        struct sigaction present {};
        if (sigaction(number, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            sigaddset(&blocked, number);
    }
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    return blocked;
}

} // namespace velorin::host

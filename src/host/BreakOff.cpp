// A thread that waits for the signals which all others hold back.
#include "host/BreakOff.h"

#include "host/SignalSet.h"

#include <pthread.h>

namespace velorin::host {

namespace {

void endBy(int signal) {
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    std::raise(signal);
}

} // namespace

BreakOff::BreakOff() : held_(holdBackEndSignals()) {
    for (const int number : endSignals) {
        if (sigismember(&held_, number) == 1)
            wakeUp_ = number;
    }
    if (wakeUp_ != 0)
        waiting_ = std::thread([this] { wait(); });
}

// A signal to the thread alone wakes it, which is then no wish of anybody's.
BreakOff::~BreakOff() {
    if (!waiting_.joinable())
        return;
    over_ = true;
    pthread_kill(waiting_.native_handle(), wakeUp_);
    waiting_.join();
}

void BreakOff::endIfWanted() const {
    if (const int signal = arrived_; signal != 0)
        endBy(signal);
}

void BreakOff::wait() {
    while (true) {
        int signal = 0;
        if (sigwait(&held_, &signal) != 0 || over_)
            return;
        if (arrived_.exchange(signal) != 0)
            endBy(signal);
    }
}

} // namespace velorin::host

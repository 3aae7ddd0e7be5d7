// A thread that waits for the signals, which are blocked everywhere.
#include "host/process/StopRequest.h"

#include "host/process/TerminationSignals.h"

#include <pthread.h>

namespace velorin::host {

namespace {

void endProcessBy(int signal) {
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    std::raise(signal);
}

} // namespace

StopRequest::StopRequest() : blocked_(blockTerminationSignals()) {
    for (const int number : terminationSignals) {
        if (sigismember(&blocked_, number) == 1)
            wakeUp_ = number;
    }
    if (wakeUp_ != 0)
        waiting_ = std::thread([this] { wait(); });
}

// A signal to the thread alone wakes it. `stopping_` says that it is no request.
StopRequest::~StopRequest() {
    if (!waiting_.joinable())
        return;
    stopping_ = true;
    pthread_kill(waiting_.native_handle(), wakeUp_);
    waiting_.join();
}

void StopRequest::endProcessIfArrived() const {
    if (const int signal = arrived_; signal != 0)
        endProcessBy(signal);
}

void StopRequest::wait() {
    while (true) {
        int signal = 0;
        if (sigwait(&blocked_, &signal) != 0 || stopping_)
            return;
        if (arrived_.exchange(signal) != 0)
            endProcessBy(signal);
    }
}

} // namespace velorin::host

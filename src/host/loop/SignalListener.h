// A request to stop, for a program with an event loop.
#pragma once

#include <csignal>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace velorin::host {

/// Create it before any other thread, since threads inherit the set of blocked signals. The first
/// signal calls back from the event loop; a second one ends the process at once.
class SignalListener {
public:
    SignalListener();
    ~SignalListener();
    SignalListener(const SignalListener&) = delete;
    SignalListener& operator=(const SignalListener&) = delete;

    /// Calls `onSignal` from the event loop of this thread, from now on.
    void listen(std::function<void()> onSignal);

private:
    void unblock();

    sigset_t blocked_;
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velorin::host

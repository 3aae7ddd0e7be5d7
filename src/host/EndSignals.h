// The wish to end, for a program with an event loop.
#pragma once

#include <csignal>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace velorin::host {

/// Made before any thread is, since threads inherit which signals they do not take. The first
/// signal comes as a call from the event loop; a second one ends the process at once.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Calls `onSignal` from the event loop of this thread, from now on.
    void listen(std::function<void()> onSignal);

private:
    void letThrough();

    sigset_t taken_;
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velorin::host

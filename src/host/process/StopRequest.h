// A request to stop, for a program without an event loop: it looks for one between two pieces of
// work.
#pragma once

#include <atomic>
#include <csignal>
#include <thread>

namespace velorin::host {

/// Create it before any other thread, since threads inherit the set of blocked signals. The first
/// signal is stored until the program looks; a second one ends the process at once.
class StopRequest {
public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    /// True once a signal has arrived. Thread-safe.
    [[nodiscard]] bool hasArrived() const { return arrived_ != 0; }

    /// Ends the process with the signal that has arrived, so that a shell sees what ended it.
    /// Returns if none has.
    void endProcessIfArrived() const;

private:
    void wait();

    sigset_t blocked_;
    int wakeUp_ = 0;              ///< a blocked signal that wakes the thread; 0: none is blocked
    std::atomic<int> arrived_{0}; ///< the number of the signal; 0 if none has arrived
    std::atomic<bool> stopping_{false};
    std::thread waiting_;
};

} // namespace velorin::host

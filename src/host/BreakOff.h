// The wish to end, for a program without an event loop: it is asked for between two pieces of work.
#pragma once

#include <atomic>
#include <csignal>
#include <thread>

namespace velorin::host {

/// Made before any other thread is, since threads inherit which signals they do not take. The
/// first signal is kept until somebody asks; a second one ends the process at once.
class BreakOff {
public:
    BreakOff();
    ~BreakOff();
    BreakOff(const BreakOff&) = delete;
    BreakOff& operator=(const BreakOff&) = delete;

    /// Whether a signal has come; from any thread.
    [[nodiscard]] bool isWanted() const { return arrived_ != 0; }

    /// Ends the process by the signal that has come, so that a shell sees what ended it; returns
    /// if none has.
    void endIfWanted() const;

private:
    void wait();

    sigset_t held_;
    int wakeUp_ = 0;              ///< one of the signals held back; 0 if there are none
    std::atomic<int> arrived_{0}; ///< the number of the signal; 0 if none has come
    std::atomic<bool> over_{false};
    std::thread waiting_;
};

} // namespace velorin::host

// One-shot timers that fire from the message loop.
#pragma once

#include <functional>

namespace platform {

class Timers {
public:
    virtual ~Timers() = default;
    /// Calls `fire` once, from the message loop, `milliseconds` from now. Returns a number for
    /// `cancel`.
    virtual int after(int milliseconds, std::function<void()> fire) = 0;
    virtual void cancel(int number) = 0; ///< an unknown number does nothing
};

} // namespace platform

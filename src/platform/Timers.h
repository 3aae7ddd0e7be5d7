// Timers that fire while the message loop is let through.
#pragma once

#include <functional>

namespace platform {

class Timers {
public:
    virtual ~Timers() = default;
    /// Calls `fire` once, `milliseconds` from now, at a yield. Returns a number for `cancel`.
    virtual int after(int milliseconds, std::function<void()> fire) = 0;
    virtual void cancel(int number) = 0; ///< an unknown number does nothing
};

} // namespace platform

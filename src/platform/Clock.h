// The two clocks of the host: a high-resolution counter and a millisecond tick.
#pragma once

#include <cstdint>

namespace platform {

class Clock {
public:
    virtual ~Clock() = default;

    /// The monotonic counter, in ticks of `QueryPerformanceFrequency` to the second.
    virtual std::int64_t QueryPerformanceCounter() = 0;

    /// Ticks in a second, constant for the run; 0 if the host has no such counter.
    virtual std::int64_t QueryPerformanceFrequency() = 0;

    /// Milliseconds since some fixed moment; wraps after 49.7 days. A fixed name of the interface:
    /// the program does not call it, since `hold` is the strum's loop over it.
    virtual std::uint32_t GetTickCount() = 0;

    /// Blocks the thread for `milliseconds`. No events are processed meanwhile.
    virtual void hold(int milliseconds) = 0;
};

} // namespace platform

// The rate of the stream, kept by the clock where no sound card keeps it.
#pragma once

#include <chrono>
#include <cstdint>

namespace velorin::host {

class ClockPace {
public:
    /// Sleeps until the time of all frames counted so far has gone by since the first call, and
    /// counts `frames` more. Every deadline is counted from the start, so nothing adds up; after a
    /// stall the calls return at once until they have caught up. Returns the deadline, in
    /// nanoseconds of the steady clock.
    std::int64_t wait(int frames);

private:
    std::chrono::steady_clock::time_point start_;
    std::int64_t frames_ = 0;
};

} // namespace velorin::host

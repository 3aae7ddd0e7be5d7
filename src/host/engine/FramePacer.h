// Paces the stream by the clock when no sound card does.
#pragma once

#include <chrono>
#include <cstdint>

namespace velorin::host {

class FramePacer {
public:
    /// Sleeps until the frames of all earlier calls have had their time since the first call, and
    /// then counts `frames` more. Deadlines are computed from the first call, so errors do not add
    /// up. After a stall the calls return at once until they have caught up. Returns the deadline,
    /// in nanoseconds of the steady clock.
    std::int64_t wait(int frames);

    /// Sleeps until a moment of the steady clock, in nanoseconds, but 20 ms at most: longer than
    /// any buffer. Returns the moment of its end.
    static std::int64_t waitUntil(std::int64_t ns);

private:
    std::chrono::steady_clock::time_point start_;
    std::int64_t frames_ = 0;
};

} // namespace velorin::host

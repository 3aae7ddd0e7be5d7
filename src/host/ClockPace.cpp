// Deadlines by the count of frames.
#include "host/ClockPace.h"

#include "host/SoundSource.h"

#include <thread>

namespace velorin::host {

std::int64_t ClockPace::wait(int frames) {
    using namespace std::chrono;
    if (frames_ == 0)
        start_ = steady_clock::now();
    // Seconds apart from the rest: frames in nanoseconds would leave 64 bits after two days.
    const std::int64_t whole = frames_ / streamRateHz;
    const std::int64_t rest = frames_ % streamRateHz * 1'000'000'000 / streamRateHz;
    const auto due = start_ + seconds(whole) + nanoseconds(rest);
    std::this_thread::sleep_until(due);
    frames_ += frames;
    return duration_cast<nanoseconds>(due.time_since_epoch()).count();
}

} // namespace velorin::host

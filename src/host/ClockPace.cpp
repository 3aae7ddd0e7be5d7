// Deadlines by the count of frames.
#include "host/ClockPace.h"

#include "host/SoundSource.h"

#include <thread>

namespace velorin::host {

void ClockPace::wait(int frames) {
    using namespace std::chrono;
    if (frames_ == 0)
        start_ = steady_clock::now();
    // Seconds apart from the rest: frames in nanoseconds would leave 64 bits after two days.
    const std::int64_t whole = frames_ / streamRateHz;
    const std::int64_t rest = frames_ % streamRateHz * 1'000'000'000 / streamRateHz;
    std::this_thread::sleep_until(start_ + seconds(whole) + nanoseconds(rest));
    frames_ += frames;
}

} // namespace velorin::host

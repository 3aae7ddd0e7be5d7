// Computes deadlines from the count of frames.
#include "host/engine/FramePacer.h"

#include "host/engine/SoundSource.h"
#include "host/process/StreamThread.h"
#include "host/process/SystemClock.h"

#include <algorithm>
#include <thread>

namespace velorin::host {

std::int64_t FramePacer::wait(int frames) {
    using namespace std::chrono;
    if (frames_ == 0)
        start_ = steady_clock::now();
    // Whole seconds are computed apart: the product in nanoseconds would overflow 64 bits after two
    // days.
    const std::int64_t whole = frames_ / streamRateHz;
    const std::int64_t rest = frames_ % streamRateHz * 1'000'000'000 / streamRateHz;
    const auto due = start_ + seconds(whole) + nanoseconds(rest);
    const StreamThreadWait waiting;
    std::this_thread::sleep_until(due);
    frames_ += frames;
    return duration_cast<nanoseconds>(due.time_since_epoch()).count();
}

std::int64_t FramePacer::waitUntil(std::int64_t ns) {
    constexpr std::int64_t longestNs = 20'000'000;
    const std::int64_t nowNs = steadyNs();
    if (ns <= nowNs)
        return nowNs;
    const StreamThreadWait waiting;
    std::this_thread::sleep_for(std::chrono::nanoseconds(std::min(ns - nowNs, longestNs)));
    return steadyNs();
}

} // namespace velorin::host

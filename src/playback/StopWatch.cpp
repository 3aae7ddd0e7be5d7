// Stopwatch arithmetic: converts counter ticks to single-precision seconds.
#include "playback/StopWatch.h"

#include "platform/Clock.h"
#include "platform/MessageLoop.h"

#include <cmath>
#include <limits>

namespace velorin {

int StopWatch::StopWatchNew() {
    watches_.emplace_back();
    return static_cast<int>(watches_.size());
}

int StopWatch::StopWatchStart(int number) {
    if (!has(number))
        return 0;
    Watch& watch = watches_[static_cast<std::size_t>(number) - 1];
    watch.running = true;
    frequency_ = clock_.QueryPerformanceFrequency();
    if (frequency_ <= 0)
        return 0;
    const std::int64_t first = clock_.QueryPerformanceCounter();
    overhead_ = clock_.QueryPerformanceCounter() - first;
    watch.start = clock_.QueryPerformanceCounter();
    return 1;
}

float StopWatch::StopWatchElapsed(int number) {
    if (!has(number))
        return -1.0F;
    const Watch& watch = watches_[static_cast<std::size_t>(number) - 1];
    if (!watch.running || frequency_ <= 0)
        return 0.0F;
    const std::int64_t ticks = clock_.QueryPerformanceCounter() - watch.start - overhead_;
    return toSeconds(ticks);
}

float StopWatch::toSeconds(std::int64_t ticks) const {
    return static_cast<float>(static_cast<double>(ticks) / static_cast<double>(frequency_));
}

// The counter value at which the stopwatch shows `reading`: the nearest tick, or the next one if
// the nearest still shows less. So an event that is due a fraction of a tick after the reading
// comes after the wait. A stopwatch that does not run never shows it.
std::int64_t StopWatch::counterAt(int number, float reading) const {
    const bool runs = has(number) && watches_[static_cast<std::size_t>(number) - 1].running;
    if (!runs || frequency_ <= 0)
        return std::numeric_limits<std::int64_t>::max();
    auto ticks = static_cast<std::int64_t>(
        std::round(static_cast<double>(reading) * static_cast<double>(frequency_)));
    if (toSeconds(ticks) < reading)
        ++ticks;
    return watches_[static_cast<std::size_t>(number) - 1].start + overhead_ + ticks;
}

float StopWatch::endOfWait(int number, float seconds) {
    return StopWatchElapsed(number) + seconds;
}

bool StopWatch::waitOn(int number, float end) {
    if (!(end > StopWatchElapsed(number)) || loop_.isEnding())
        return false;
    loop_.waitUntil(counterAt(number, end));
    return true;
}

void StopWatch::WaitSeconds(int number, float seconds) {
    const float end = endOfWait(number, seconds);
    if (!waitOn(number, end))
        return loop_.rest();
    while (waitOn(number, end)) {
    }
}

} // namespace velorin

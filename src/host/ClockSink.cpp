// A thread that pulls one buffer whenever the time of one has gone by.
#include "host/ClockSink.h"

#include "host/SoundSource.h"

#include <chrono>
#include <vector>

namespace velorin::host {

ClockSink::ClockSink(PullStream pull, int bufferFrames)
    : pull_(std::move(pull)), bufferFrames_(bufferFrames), thread_([this] { run(); }) {}

ClockSink::~ClockSink() {
    ending_ = true;
    thread_.join();
}

// Every deadline is counted from the start, so nothing adds up; after a stall the thread pulls what
// it owes without a pause.
void ClockSink::run() {
    std::vector<float> unheard(2 * static_cast<std::size_t>(bufferFrames_));
    const auto start = std::chrono::steady_clock::now();
    for (std::int64_t frames = 0; !ending_; frames += bufferFrames_) {
        // Seconds apart from the rest: frames in nanoseconds would leave 64 bits after two days.
        const std::int64_t seconds = frames / streamRateHz;
        const std::int64_t rest = frames % streamRateHz * 1'000'000'000 / streamRateHz;
        std::this_thread::sleep_until(start + std::chrono::seconds(seconds) +
                                      std::chrono::nanoseconds(rest));
        pull_(unheard.data(), bufferFrames_);
    }
}

} // namespace velorin::host

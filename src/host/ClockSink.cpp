// A thread that pulls one buffer whenever the time of one has gone by.
#include "host/ClockSink.h"

#include "host/ClockPace.h"

#include <vector>

namespace velorin::host {

ClockSink::ClockSink(PullStream pull, int bufferFrames)
    : pull_(std::move(pull)), bufferFrames_(bufferFrames), thread_([this] { run(); }) {}

ClockSink::~ClockSink() {
    ending_ = true;
    thread_.join();
}

// After a stall the thread pulls what it owes without a pause, each buffer for the moment at which
// it was due: what was sent during the stall still falls where it belongs.
void ClockSink::run() {
    std::vector<float> unheard(2 * static_cast<std::size_t>(bufferFrames_));
    ClockPace pace;
    while (!ending_) {
        const std::int64_t dueNs = pace.wait(bufferFrames_);
        pull_(unheard.data(), bufferFrames_, dueNs);
    }
}

} // namespace velorin::host

// A thread that pulls one buffer in the time of one buffer.
#include "host/engine/ClockSink.h"

#include "host/engine/FramePacer.h"

#include <vector>

namespace velorin::host {

ClockSink::ClockSink(PullStream pull, int bufferFrames)
    : pull_(std::move(pull)), bufferFrames_(bufferFrames), thread_([this] { run(); }) {}

ClockSink::~ClockSink() {
    ending_ = true;
    thread_.join();
}

// After a stall the thread catches up without a pause. Each buffer is pulled for the moment at
// which it was due, so messages sent during the stall still take effect at their times.
void ClockSink::run() {
    std::vector<float> unheard(2 * static_cast<std::size_t>(bufferFrames_));
    FramePacer pacer;
    while (!ending_) {
        const std::int64_t dueNs = pacer.wait(bufferFrames_);
        pull_(unheard.data(), bufferFrames_, dueNs);
    }
}

} // namespace velorin::host

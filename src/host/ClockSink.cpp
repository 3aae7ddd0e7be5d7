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

// After a stall the thread pulls what it owes without a pause.
void ClockSink::run() {
    std::vector<float> unheard(2 * static_cast<std::size_t>(bufferFrames_));
    ClockPace pace;
    while (!ending_) {
        pace.wait(bufferFrames_);
        pull_(unheard.data(), bufferFrames_);
    }
}

} // namespace velorin::host

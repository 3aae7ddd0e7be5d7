// Pulls the stream at its rate on a machine without a sound card. Nothing is heard.
#pragma once

#include "host/engine/SoundSink.h"

#include <atomic>
#include <thread>

namespace velorin::host {

class ClockSink final : public SoundSink {
public:
    ClockSink(PullStream pull, int bufferFrames);
    ~ClockSink() override;
    ClockSink(const ClockSink&) = delete;
    ClockSink& operator=(const ClockSink&) = delete;

    [[nodiscard]] bool hasCard() const override { return false; }

private:
    void run();

    PullStream pull_;
    int bufferFrames_;
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

} // namespace velorin::host

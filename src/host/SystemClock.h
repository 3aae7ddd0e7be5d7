// The host's clocks: the steady clock in nanoseconds, and a hold that lasts exactly its time.
#pragma once

#include "platform/Clock.h"

namespace velorin::host {

/// May be used from any thread.
class SystemClock final : public platform::Clock {
public:
    std::int64_t QueryPerformanceCounter() override; ///< nanoseconds of the steady clock
    std::int64_t QueryPerformanceFrequency() override { return ticksPerSecond; }
    std::uint32_t GetTickCount() override;
    void hold(int milliseconds) override;

    static constexpr std::int64_t ticksPerSecond = 1'000'000'000;
};

} // namespace velorin::host

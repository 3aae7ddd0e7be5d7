// The host's clocks: the steady clock in nanoseconds, and a hold that lasts exactly its time.
#pragma once

#include "platform/Clock.h"

namespace velorin::host {

/// Nanoseconds of the steady clock; from any thread.
[[nodiscard]] std::int64_t steadyNs();

/// May be used from any thread.
class SystemClock final : public platform::Clock {
public:
    std::int64_t QueryPerformanceCounter() override; ///< `steadyNs`
    std::int64_t QueryPerformanceFrequency() override { return ticksPerSecond; }
    std::uint32_t GetTickCount() override;
    void hold(int milliseconds) override;

    static constexpr std::int64_t ticksPerSecond = 1'000'000'000;
};

} // namespace velorin::host

// The host's clocks: the steady clock in nanoseconds, and a blocking wait of an exact time.
#pragma once

#include "host/process/StreamThread.h"
#include "platform/Clock.h"

namespace velorin::host {

/// Nanoseconds of the steady clock. Thread-safe.
VELORIN_STREAM_THREAD [[nodiscard]] std::int64_t steadyNs();

/// Thread-safe.
class SystemClock final : public platform::Clock {
public:
    std::int64_t QueryPerformanceCounter() override; ///< `steadyNs`
    std::int64_t QueryPerformanceFrequency() override { return ticksPerSecond; }
    std::uint32_t GetTickCount() override;
    void hold(int milliseconds) override;

    static constexpr std::int64_t ticksPerSecond = 1'000'000'000;
};

} // namespace velorin::host

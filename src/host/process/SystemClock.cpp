// Both counters read the steady clock.
#include "host/process/SystemClock.h"

#include <chrono>
#include <thread>

namespace velorin::host {

namespace {

using std::chrono::steady_clock;

// A sleeping thread wakes some 0.1 ms late, by the kernel's timer slack and by scheduling. It
// sleeps until this much is left, and polls the clock for the rest.
constexpr auto wakeMargin = std::chrono::microseconds(300);

} // namespace

std::int64_t steadyNs() {
    const auto sinceStart = steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(sinceStart).count();
}

std::int64_t SystemClock::QueryPerformanceCounter() {
    return steadyNs();
}

std::uint32_t SystemClock::GetTickCount() {
    return static_cast<std::uint32_t>(QueryPerformanceCounter() / 1'000'000);
}

void SystemClock::hold(int milliseconds) {
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    std::this_thread::sleep_until(end - wakeMargin);
    while (steady_clock::now() < end) {
        std::this_thread::yield();
    }
}

} // namespace velorin::host

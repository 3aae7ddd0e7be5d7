// The clock, the message loop and the timers of a test: time stands still while the program works
// and moves only while it waits.
#pragma once

#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "platform/Timers.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scripted {

/// Nanoseconds since the start, and in every duration.
using Nanoseconds = std::int64_t;

constexpr Nanoseconds nanosecondsPerSecond = 1'000'000'000;
constexpr Nanoseconds oneDay = 24 * 3600 * nanosecondsPerSecond;

/// Something planned runs at a yield or inside a wait, as a click would:
///
///     wait      |-----------|---------------------|
///     planned         ^ runs inside               ^ at a tie the wait ends first,
///                                                   and this runs at the next yield
class VirtualTime final : public platform::Clock,
                          public platform::MessageLoop,
                          public platform::Timers {
public:
    std::int64_t QueryPerformanceCounter() override { return now_; }
    std::int64_t QueryPerformanceFrequency() override { return nanosecondsPerSecond; }
    std::uint32_t GetTickCount() override;
    void hold(int milliseconds) override;

    /// Runs what is due now, in the order of its times; what is planned meanwhile waits for the
    /// next yield.
    void Yield() override;
    /// Moves the clock to `counter` or to what is planned before it, whichever comes first, and
    /// runs the latter.
    void waitUntil(std::int64_t counter) override;
    [[nodiscard]] int depth() const override { return depth_; }
    void end() override { ended_ = true; }
    [[nodiscard]] bool isEnding() const override { return ended_ || brokenOff_; }

    int after(int milliseconds, std::function<void()> fire) override;
    void cancel(int number) override;

    /// Plans something for `delay` from now. Returns a number for `cancel`.
    int plan(Nanoseconds delay, std::function<void()> run);
    /// Lets the loop run for that long, what is due at its end included.
    void pass(Nanoseconds duration);
    void dropPlanned() { planned_.clear(); }

    /// Asked by a wait before which nothing is planned but timers; true if something has been done,
    /// so that the wait ends without time going by.
    std::function<bool()> onNothingPlanned;

    [[nodiscard]] Nanoseconds now() const { return now_; }
    /// The time in seconds with three decimals, "0.120".
    [[nodiscard]] std::string stamp() const;

    void restart(); ///< the clock back to 0; what is planned is as far ahead as before
    void clearEnd() { ended_ = false; } ///< a program that has ended may start again

    /// Asked in a wait of a day or more during which nothing is planned: closes what waits for a
    /// user, and returns whether there was such a thing.
    std::function<bool()> closeWhatWaits;

    /// What runs between `beginCommand` and `endCommand` is broken off once it has run for a day.
    void beginCommand();
    /// Returns whether it was broken off; the clock then stands a day after its begin.
    bool endCommand();

private:
    struct Planned {
        Nanoseconds time = 0;
        int number = 0;
        std::function<void()> run;
        bool isTimer = false;
    };

    [[nodiscard]] const Planned* next() const;
    [[nodiscard]] bool isAnythingPlanned() const;
    void runDue();
    void moveTo(Nanoseconds time);

    Nanoseconds now_ = 0;
    Nanoseconds deadline_ = INT64_MAX;
    std::int64_t idleYields_ = 0; ///< since the clock moved last
    int depth_ = 0;               ///< yields and waits that run
    int lastNumber_ = 0;
    bool ended_ = false;
    bool brokenOff_ = false;
    std::vector<Planned> planned_;
};

} // namespace scripted

// The clock, the message loop and the timers for tests. Time moves only while the program waits.
#pragma once

#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "platform/Timers.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scripted {

/// In nanoseconds since the start, and for durations.
using Nanoseconds = std::int64_t;

constexpr Nanoseconds nanosecondsPerSecond = 1'000'000'000;
constexpr Nanoseconds oneDay = 24 * 3600 * nanosecondsPerSecond;

/// A planned action runs at a yield or inside a wait, like a click:
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

    /// Runs the actions that are due, in the order of their times. Actions planned meanwhile wait
    /// for the next yield.
    void Yield() override;
    /// Moves the clock to `counter`, or to an action that is planned before it and runs that
    /// action.
    void waitUntil(std::int64_t counter) override;
    [[nodiscard]] int depth() const override { return depth_; }
    void end() override { ended_ = true; }
    [[nodiscard]] bool isEnding() const override { return ended_ || brokenOff_; }

    int after(int milliseconds, std::function<void()> fire) override;
    void cancel(int number) override;

    /// Plans an action for `delay` from now. Returns a number for `cancel`.
    int plan(Nanoseconds delay, std::function<void()> run);
    /// Runs the loop for this long, with the actions that are due at its end.
    void pass(Nanoseconds duration);
    void dropPlanned() { planned_.clear(); }

    /// Called by a wait before which only timers are planned. True if it did something, so that the
    /// wait ends at once.
    std::function<bool()> onNothingPlanned;

    [[nodiscard]] Nanoseconds now() const { return now_; }
    /// The time in seconds with three decimals, "0.120".
    [[nodiscard]] std::string stamp() const;

    void restart(); ///< sets the clock to 0; planned actions keep their distance
    void clearEnd() { ended_ = false; } ///< lets a program that has ended start again

    /// Called in a wait of a day or more without planned actions. Closes what waits for a user;
    /// returns whether there was such a thing.
    std::function<bool()> closeWhatWaits;

    /// A command between `beginCommand` and `endCommand` is stopped once it has run for a day.
    void beginCommand();
    /// Returns whether it was stopped; the clock is then a day after its start.
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
    int depth_ = 0;               ///< running yields and waits
    int lastNumber_ = 0;
    bool ended_ = false;
    bool brokenOff_ = false;
    std::vector<Planned> planned_;
};

} // namespace scripted

// The high-resolution stopwatches, and a wait that processes events.
#pragma once

#include <cstdint>
#include <vector>

namespace platform {
class Clock;
class MessageLoop;
} // namespace platform

namespace velorin {

/// A table of stopwatches, numbered from 1.
///
/// Rule: readings and sums of readings are in single precision, which decides the length of a
/// column to the last bit. Held by playback/stopwatches.
class StopWatch {
public:
    StopWatch(platform::Clock& clock, platform::MessageLoop& loop) : clock_(clock), loop_(loop) {}

    /// Adds a stopwatch, not running, and returns its number.
    int StopWatchNew();

    /// Starts or restarts one. Returns 1; 0 for a number that is not in the table, or if the
    /// machine has no counter.
    int StopWatchStart(int number);

    /// Seconds since its start; 0 if it is not running, -1 for a number that is not in the table.
    [[nodiscard]] float StopWatchElapsed(int number);

    /// Processes events until `seconds` have passed on the stopwatch, or the program ends. A wait
    /// that is over at once lets the loop rest, so a song of such waits does not use a whole core.
    void WaitSeconds(int number, float seconds);

    // The same wait in steps, for a caller that does something between them.
    [[nodiscard]] float endOfWait(int number, float seconds); ///< the reading at which it ends
    /// Processes an event, or sleeps until the reading is `end`. Returns false at once if that time
    /// has come or the program ends.
    [[nodiscard]] bool waitOn(int number, float end);

private:
    struct Watch {
        std::int64_t start = 0;
        bool running = false;
    };

    [[nodiscard]] bool has(int number) const {
        return number >= 1 && static_cast<std::size_t>(number) <= watches_.size();
    }
    [[nodiscard]] float toSeconds(std::int64_t ticks) const;
    [[nodiscard]] std::int64_t counterAt(int number, float reading) const;

    platform::Clock& clock_;
    platform::MessageLoop& loop_;
    std::vector<Watch> watches_;
    std::int64_t overhead_ =
        0; ///< ticks that one reading takes; measured at each start, used for all
    std::int64_t frequency_ = 0; ///< ticks to the second
};

} // namespace velorin

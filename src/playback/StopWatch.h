// The high-resolution stopwatches and the yielding wait that is built on them.
#pragma once

#include <cstdint>
#include <vector>

namespace platform {
class Clock;
class MessageLoop;
} // namespace platform

namespace velorin {

/// A table of stopwatches, numbered from 1. Readings and sums of readings are in single precision:
/// this is how a column gets its length, to the last bit.
class StopWatch {
public:
    StopWatch(platform::Clock& clock, platform::MessageLoop& loop) : clock_(clock), loop_(loop) {}

    /// Adds a stopwatch, not running, and returns its number.
    int StopWatchNew();

    /// Starts or restarts one. 1 on success; 0 for a number that is not in the table, or with no
    /// counter.
    int StopWatchStart(int number);

    /// Seconds since its start; 0 if it is not running, -1 for a number that is not in the table.
    [[nodiscard]] float StopWatchElapsed(int number);

    /// Serves events until `seconds` have gone by on the stopwatch, or the program ends. A wait
    /// that is over at once lets the loop rest, so that a song of such waits does not spin.
    void WaitSeconds(int number, float seconds);

    // A wait in pieces, for a caller that looks around between them.
    [[nodiscard]] float endOfWait(int number, float seconds); ///< its end, a reading
    /// Serves an event, or sleeps until the reading is `end`. False, and nothing is done, if it is
    /// that already or the program ends.
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
    std::int64_t overhead_ = 0;  ///< of one reading, in ticks; that of the last start holds for all
    std::int64_t frequency_ = 0; ///< ticks to the second
};

} // namespace velorin

// Where the messages of a MID file go: a MIDI device that is told when each of them is due.
#pragma once

#include "host/ShortMessage.h"
#include "host/SystemClock.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace velorin::host {

/// For the sequencer's thread; made and destroyed by the control thread.
class SequencerPort {
public:
    virtual ~SequencerPort() = default;

    /// Whether it can sound yet.
    [[nodiscard]] virtual bool isReady() const = 0;

    /// How long before its time a message may be sent. 0 for a port that sends at once.
    [[nodiscard]] virtual std::int64_t leadNs() const = 0;

    /// `dueNs` on the port's clock.
    virtual void send(std::int64_t dueNs, const ShortMessage& message) = 0;

    /// The port's clock, which the player goes by: the steady clock, unless a port keeps a time of
    /// its own. From any thread.
    [[nodiscard]] virtual std::int64_t nowNs() const { return steadyNs(); }

    /// Waits for a notice, at most until `momentNs` of that clock; may return before.
    virtual void waitUntil(std::int64_t momentNs, std::condition_variable& notice,
                           std::unique_lock<std::mutex>& lock) {
        using Clock = std::chrono::steady_clock;
        notice.wait_until(lock, Clock::time_point(std::chrono::duration_cast<Clock::duration>(
                                    std::chrono::nanoseconds(momentNs))));
    }
};

} // namespace velorin::host

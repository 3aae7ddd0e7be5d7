// A MIDI device for a MID file: each message comes with the time at which it is due.
#pragma once

#include "host/midi/ShortMessage.h"
#include "host/process/SystemClock.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace velorin::host {

/// For the sequencer's thread; made and destroyed by the control thread.
class SequencerPort {
public:
    virtual ~SequencerPort() = default;

    /// True once it can sound.
    [[nodiscard]] virtual bool isReady() const = 0;

    /// How long before its time a message may be sent. 0 for a port that sends at once.
    [[nodiscard]] virtual std::int64_t leadNs() const = 0;

    /// Sends a message that is due at `dueNs` of the port's clock.
    virtual void send(std::int64_t dueNs, const ShortMessage& message) = 0;

    /// The port's clock, which the player uses: the steady clock, unless a port has its own time.
    /// From any thread.
    [[nodiscard]] virtual std::int64_t nowNs() const { return steadyNs(); }

    /// Waits until `notice` is notified, or until `momentNs` of that clock; may return earlier.
    virtual void waitUntil(std::int64_t momentNs, std::condition_variable& notice,
                           std::unique_lock<std::mutex>& lock) {
        using Clock = std::chrono::steady_clock;
        notice.wait_until(lock, Clock::time_point(std::chrono::duration_cast<Clock::duration>(
                                    std::chrono::nanoseconds(momentNs))));
    }
};

} // namespace velorin::host

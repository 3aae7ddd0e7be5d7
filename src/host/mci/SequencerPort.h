// Where the messages of a MID file go: a MIDI device that is told when each of them is due.
#pragma once

#include "host/ShortMessage.h"

#include <cstdint>

namespace velorin::host {

/// For the sequencer's thread; made and destroyed by the control thread.
class SequencerPort {
public:
    virtual ~SequencerPort() = default;

    /// Whether it can sound yet.
    [[nodiscard]] virtual bool isReady() const = 0;

    /// How long before its time a message may be sent. 0 for a port that sends at once.
    [[nodiscard]] virtual std::int64_t leadNs() const = 0;

    /// `dueNs` on the steady clock.
    virtual void send(std::int64_t dueNs, const ShortMessage& message) = 0;
};

} // namespace velorin::host

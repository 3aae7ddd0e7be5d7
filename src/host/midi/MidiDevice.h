// An open MIDI output device, whatever it is made of.
#pragma once

#include "host/midi/ShortMessage.h"

#include <cstdint>

namespace velorin::host {

/// The destructor closes the device and ends what sounds on it.
class MidiDevice {
public:
    virtual ~MidiDevice() = default;

    /// The message is never empty. A lost device ignores it.
    virtual void send(const ShortMessage& message) = 0;

    /// The same, as if it had been called at `stampNs` of the steady clock, some milliseconds ago.
    /// A device without a stream of its own sends at once.
    virtual void sendAt(std::int64_t /*stampNs*/, const ShortMessage& message) { send(message); }
};

} // namespace velorin::host

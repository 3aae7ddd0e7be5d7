// An open MIDI output device, whatever it is made of.
#pragma once

#include "host/ShortMessage.h"

namespace velorin::host {

/// The destructor closes the device and ends what sounds on it.
class MidiDevice {
public:
    virtual ~MidiDevice() = default;

    /// Never an empty message. A device that has gone away takes no notice.
    virtual void send(const ShortMessage& message) = 0;
};

} // namespace velorin::host

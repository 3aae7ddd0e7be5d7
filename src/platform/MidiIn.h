// MIDI input: what a MIDI keyboard at one of the machine's ports plays.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// A channel message, with the moment at which it came in.
struct MidiInMessage {
    std::int64_t counter = 0; ///< of the platform's clock
    std::uint8_t status = 0;  ///< 0x80..0xEF
    std::uint8_t data1 = 0;   ///< 0..127; 0 for a message that has none
    std::uint8_t data2 = 0;
};

/// One port at a time. User-interface thread only; it needs the event loop.
class MidiIn {
public:
    virtual ~MidiIn() = default;

    /// The names of the ports that are there now, UTF-8. A name stays when the device is unplugged
    /// and plugged in again. Empty on a machine without MIDI.
    [[nodiscard]] virtual std::vector<std::string> ports() = 0;

    /// Listens to the port of that name; the one before is closed. False if it is not there or
    /// cannot be opened; then nothing is open.
    [[nodiscard]] virtual bool open(const std::string& port) = 0;
    virtual void close() = 0; ///< does nothing if no port is open

    /// False if no port is open, or the open one is gone. Asks the system, so call it a few times a
    /// second at most.
    [[nodiscard]] virtual bool isConnected() = 0;

    /// Gets each message of the open port, in order. System messages are left out.
    std::function<void(const MidiInMessage& message)> onMessage;
};

} // namespace platform

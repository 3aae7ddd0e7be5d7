// MIDI output devices and the short messages that are sent to them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// 0 is no device. A handle that was closed or never opened is invalid: messages sent to it are
/// dropped.
using MidiOutHandle = std::uint32_t;

// What the calls return.
constexpr std::uint32_t midiSuccess = 0;
constexpr std::uint32_t midiBadDevice = 2;
constexpr std::uint32_t midiAlreadyOpen = 4;
constexpr std::uint32_t midiBadHandle = 5;
constexpr std::uint32_t midiBadParameter = 11;

/// A result other than `midiSuccess` is a failure.
class MidiOut {
public:
    virtual ~MidiOut() = default;

    /// The mapper's device number. The mapper is the first device.
    static constexpr int mapper = -1;

    /// Begins to look for the devices if that takes time. The next `midiOutGetNumDevs` waits for
    /// the result.
    virtual void beginLook() {}

    [[nodiscard]] virtual int midiOutGetNumDevs() = 0;

    /// The host's name for device `index` [0, midiOutGetNumDevs()), UTF-8; empty if there is no
    /// such device.
    [[nodiscard]] virtual std::string midiOutGetDevCapsA(int index) = 0;

    /// Opens device `index` (or `mapper`). On success writes its handle; on failure leaves `handle`
    /// alone.
    virtual std::uint32_t midiOutOpen(MidiOutHandle& handle, int index) = 0;

    /// Closes the device, which ends all that sounds on it. Fails for an invalid handle.
    virtual std::uint32_t midiOutClose(MidiOutHandle handle) = 0;

    /// Sends one message packed as status in bits 0..7, data in bits 8..15 and 16..23. A message
    /// with invalid bytes (a data byte above 127, a status below 0x80) does not reach the device.
    virtual std::uint32_t midiOutShortMsg(MidiOutHandle handle, std::uint32_t message) = 0;

    /// While a moment is set, messages sound as if they had been sent at that moment, so that what
    /// answers an event keeps its distance from the event. `counter` is of the platform's clock, a
    /// few milliseconds in the past; a device without a stream of its own ignores it.
    virtual void setMoment(std::optional<std::int64_t> /*counter*/) {}
};

} // namespace platform

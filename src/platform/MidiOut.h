// MIDI output devices, after the short-message calls of the host's multimedia library.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// 0 is no device. A handle that has been closed, or never was opened, is dead: what is sent to it
/// goes nowhere.
using MidiOutHandle = std::uint32_t;

// What the calls answer.
constexpr std::uint32_t midiSuccess = 0;
constexpr std::uint32_t midiBadDevice = 2;
constexpr std::uint32_t midiAlreadyOpen = 4;
constexpr std::uint32_t midiBadHandle = 5;
constexpr std::uint32_t midiBadParameter = 11;

/// Results are `midiSuccess`, and anything else for a failure.
class MidiOut {
public:
    virtual ~MidiOut() = default;

    /// The mapper's device number: it stands for the first device there is.
    static constexpr int mapper = -1;

    [[nodiscard]] virtual int midiOutGetNumDevs() = 0;

    /// The name of device `index` [0, midiOutGetNumDevs()), UTF-8, as the host tells it; empty if
    /// there is none.
    [[nodiscard]] virtual std::string midiOutGetDevCapsA(int index) = 0;

    /// Opens device `index` (or `mapper`). On success writes its handle; on failure leaves `handle`
    /// alone.
    virtual std::uint32_t midiOutOpen(MidiOutHandle& handle, int index) = 0;

    /// Closes the device, which ends all that sounds on it. A dead handle is a failure and nothing
    /// else.
    virtual std::uint32_t midiOutClose(MidiOutHandle handle) = 0;

    /// Sends one message packed as status in bits 0..7, data in bits 8..15 and 16..23. What is no
    /// MIDI data (a data byte above 127, a status below 0x80) is kept from the device.
    virtual std::uint32_t midiOutShortMsg(MidiOutHandle handle, std::uint32_t message) = 0;
};

} // namespace platform

// The MIDI output devices of the host: the built-in synthesizers, then the MIDI ports.
#pragma once

#include "host/midi/MidiDevice.h"
#include "host/midiout/SynthDevices.h"
#include "host/ports/MidiPorts.h"
#include "host/process/OnceLogger.h"
#include "platform/MidiOut.h"
#include "platform/OwnerThread.h"

#include <functional>
#include <memory>

namespace velorin::host {

class HostMidiOut final : public platform::MidiOut {
public:
    /// `beforeOpening` and `beforeSending`, if given, are called before a device is opened and
    /// before a message is sent. `notices`, which outlives this, may be null.
    HostMidiOut(SynthDevices& synths, MidiPorts& ports, std::function<void()> beforeOpening = {},
                std::function<void()> beforeSending = {}, platform::Notices* notices = nullptr)
        : synths_(synths),
          ports_(ports),
          beforeOpening_(std::move(beforeOpening)),
          beforeSending_(std::move(beforeSending)),
          notHeard_(notices) {}

    void beginLook() override { ports_.beginLook(); }
    int midiOutGetNumDevs() override; ///< scans the ports again
    std::string midiOutGetDevCapsA(int index) override;
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override;
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override;
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override;
    void setMoment(std::optional<std::int64_t> counter) override;

    /// Opens device `index` (or `mapper`) for a MID file, in addition to the one that is open. Null
    /// if that fails.
    [[nodiscard]] std::unique_ptr<SequencerPort> openForSequencer(int index);

    /// True if the open device is a MIDI port, which sounds outside the engine.
    [[nodiscard]] bool isPortOpen() const { return open_ && isPort_; }

private:
    [[nodiscard]] bool isOpen(platform::MidiOutHandle handle) const;
    void reportSilence();
    [[nodiscard]] std::unique_ptr<MidiDevice> openDevice(int index);

    platform::OwnerThread owner_;
    SynthDevices& synths_;
    MidiPorts& ports_;
    std::function<void()> beforeOpening_;
    std::function<void()> beforeSending_;
    bool scanned_ = false;
    bool isPort_ = false;  ///< of `open_`
    bool refused_ = false; ///< the last open failed, so nothing is heard
    OnceLogger notHeard_;
    std::unique_ptr<MidiDevice> open_; ///< the program has one device open at a time
    platform::MidiOutHandle lastHandle_ = 0;
    std::optional<std::int64_t> moment_;
};

} // namespace velorin::host

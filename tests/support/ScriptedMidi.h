// MIDI devices that keep a log of their messages.
#pragma once

#include "platform/MidiOut.h"
#include "support/VirtualTime.h"

#include <set>
#include <string>
#include <vector>

namespace scripted {

class ScriptedMidi final : public platform::MidiOut {
public:
    explicit ScriptedMidi(const VirtualTime& time) : time_(time) {}

    int midiOutGetNumDevs() override { return static_cast<int>(devices_.size()); }
    std::string midiOutGetDevCapsA(int index) override;
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override;
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override;
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override;

    /// A name that begins with '!' is a device that fails to open; the '!' is not part of the name.
    void setDevices(const std::vector<std::string>& names);

    /// "0.120 90 43 7F", "0.120 open 0", "0.120 close", "0.120 fail 0". Messages to a closed device
    /// are not logged.
    std::vector<std::string> log;

private:
    struct Device {
        std::string name;
        bool fails = false;
    };

    [[nodiscard]] bool opens(int index) const;
    void note(const std::string& what) { log.push_back(time_.stamp() + " " + what); }

    const VirtualTime& time_;
    std::vector<Device> devices_{{"Synth A", false}, {"Synth B", false}};
    std::set<platform::MidiOutHandle> open_;
    platform::MidiOutHandle lastHandle_ = 0;
};

} // namespace scripted

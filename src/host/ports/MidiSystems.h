// The MIDI systems of the machine that RtMidi can use.
#pragma once

#include <vector>

namespace velorin::host {

/// The name of the program among the clients of a MIDI system.
constexpr const char* midiClientName = "Velorin";

/// While one exists, the libraries of the systems print nothing on standard error. Control thread
/// only.
class MidiSystems {
public:
    MidiSystems();
    ~MidiSystems();
    MidiSystems(const MidiSystems&) = delete;
    MidiSystems& operator=(const MidiSystems&) = delete;

    /// The systems that run now, as `RtMidi::Api`. RtMidi reports a missing one by messages on
    /// standard error and by exceptions, so it must not be asked for one that does not run.
    [[nodiscard]] std::vector<int> running() const;
};

} // namespace velorin::host

// The host's own MIDI ports, through RtMidi.
#pragma once

#include "host/Complaint.h"
#include "host/MidiDevice.h"

#include <memory>
#include <string>
#include <vector>

namespace velorin::host {

/// Says nothing on a machine without a MIDI system: the list is empty then.
class MidiPorts {
public:
    /// `notices`, which outlives the ports, may be null.
    explicit MidiPorts(platform::Notices* notices = nullptr);
    ~MidiPorts();
    MidiPorts(const MidiPorts&) = delete;
    MidiPorts& operator=(const MidiPorts&) = delete;

    /// Looks for ports anew. What is open stays so.
    void scan();

    [[nodiscard]] std::size_t count() const { return ports_.size(); }
    [[nodiscard]] const std::string& name(std::size_t index) const { return ports_[index].name; }

    /// Null for a port that has gone away or refuses, which is said on standard error once.
    [[nodiscard]] std::unique_ptr<MidiDevice> open(std::size_t index);

private:
    struct Port {
        int api = 0;
        std::string name;
    };

    std::vector<Port> ports_;
    Complaint refused_;
    std::shared_ptr<Complaint> vanished_;
};

} // namespace velorin::host

// The MIDI output ports of the machine, through RtMidi.
#pragma once

#include "host/midi/MidiDevice.h"
#include "host/ports/MidiSystems.h"
#include "host/process/OnceLogger.h"

#include <future>
#include <memory>
#include <string>
#include <vector>

namespace velorin::host {

/// On a machine without a MIDI system the list is empty, and nothing is logged.
class MidiPorts {
public:
    /// `notices`, which outlives the ports, may be null.
    explicit MidiPorts(platform::Notices* notices = nullptr);
    ~MidiPorts(); ///< waits for that look if nobody has
    MidiPorts(const MidiPorts&) = delete;
    MidiPorts& operator=(const MidiPorts&) = delete;

    /// Begins to look for the ports on a thread of its own: asking the systems takes some
    /// milliseconds.
    void beginLook();

    /// Scans the ports again, or takes what `beginLook` has begun to look for. Open ports stay
    /// open.
    void scan();

    [[nodiscard]] std::size_t count() const { return ports_.size(); }
    [[nodiscard]] const std::string& name(std::size_t index) const { return ports_[index].name; }

    /// Null for a port that is gone or cannot be opened, which is reported once.
    [[nodiscard]] std::unique_ptr<MidiDevice> open(std::size_t index);

private:
    struct Port {
        int api = 0;
        std::string name;
    };

    [[nodiscard]] static std::vector<Port> look(const MidiSystems& systems);

    MidiSystems systems_;
    std::vector<Port> ports_;
    std::future<std::vector<Port>> begun_;
    OnceLogger refused_;
    std::shared_ptr<OnceLogger> vanished_;
};

} // namespace velorin::host

// The machine's MIDI input ports, and the one that is open.
#pragma once

#include "host/midiin/MidiInput.h"
#include "host/ports/MidiSystems.h"
#include "platform/MidiIn.h"
#include "platform/OwnerThread.h"

#include <memory>
#include <string>
#include <vector>

class QSocketNotifier;

namespace velorin::host {

/// Messages come while the event loop runs, and while a song waits for its next column.
class HostMidiIn final : public platform::MidiIn {
public:
    HostMidiIn();
    ~HostMidiIn() override;

    std::vector<std::string> ports() override;
    bool open(const std::string& port) override;
    void close() override;
    bool isConnected() override;

private:
    void deliver();

    platform::OwnerThread owner_;
    std::unique_ptr<MidiSystems> systems_; ///< null until it is needed: the start stays quick
    std::unique_ptr<MidiInput> input_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velorin::host

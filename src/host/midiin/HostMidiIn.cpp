// Finds the port among the MIDI systems, and brings its messages to the control thread.
#include "host/midiin/HostMidiIn.h"

#include <QSocketNotifier>

#include <cassert>

namespace velorin::host {

HostMidiIn::HostMidiIn() = default;
HostMidiIn::~HostMidiIn() = default;

std::vector<std::string> HostMidiIn::ports() {
    assert(owner_.isCaller());
    if (!systems_)
        systems_ = std::make_unique<MidiSystems>();
    std::vector<std::string> names;
    for (const int api : systems_->running()) {
        const std::vector<std::string> more = midiInputNames(api);
        names.insert(names.end(), more.begin(), more.end());
    }
    return names;
}

bool HostMidiIn::open(const std::string& port) {
    assert(owner_.isCaller());
    close();
    if (!systems_)
        systems_ = std::make_unique<MidiSystems>();
    for (const int api : systems_->running()) {
        input_ = MidiInput::open(api, port);
        if (!input_)
            continue;
        notifier_ = std::make_unique<QSocketNotifier>(input_->descriptor(), QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { deliver(); });
        return true;
    }
    return false;
}

void HostMidiIn::close() {
    assert(owner_.isCaller());
    if (notifier_)
        notifier_.release()->deleteLater(); // the call may come from its own signal
    input_.reset();
}

bool HostMidiIn::isConnected() {
    assert(owner_.isCaller());
    return input_ && input_->isThere();
}

// A message may close the port.
void HostMidiIn::deliver() {
    if (!input_)
        return;
    input_->acknowledge();
    while (input_) {
        const auto message = input_->next();
        if (!message)
            return;
        if (onMessage)
            onMessage(*message);
    }
}

} // namespace velorin::host

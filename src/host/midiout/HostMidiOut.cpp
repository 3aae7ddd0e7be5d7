// Joins two lists of devices, and checks handles.
#include "host/midiout/HostMidiOut.h"

#include <algorithm>
#include <cassert>

namespace velorin::host {

namespace {

/// A MIDI port for the sequencer: each message is sent when it is due.
class OutsidePort final : public SequencerPort {
public:
    explicit OutsidePort(std::unique_ptr<MidiDevice> device) : device_(std::move(device)) {}

    bool isReady() const override { return true; }
    std::int64_t leadNs() const override { return 0; }
    void send(std::int64_t, const ShortMessage& message) override { device_->send(message); }

private:
    std::unique_ptr<MidiDevice> device_;
};

} // namespace

int HostMidiOut::midiOutGetNumDevs() {
    assert(owner_.isCaller());
    ports_.scan();
    scanned_ = true;
    return static_cast<int>(synths_.count() + ports_.count());
}

std::string HostMidiOut::midiOutGetDevCapsA(int index) {
    assert(owner_.isCaller());
    if (index < 0)
        return {};
    const auto number = static_cast<std::size_t>(index);
    if (number < synths_.count())
        return synths_.name(number);
    const std::size_t port = number - synths_.count();
    return port < ports_.count() ? ports_.name(port) : std::string();
}

std::unique_ptr<MidiDevice> HostMidiOut::openDevice(int index) {
    const auto number = static_cast<std::size_t>(index == mapper ? 0 : index);
    if (number < synths_.count())
        return synths_.open(number);
    const std::size_t port = number - synths_.count();
    return port < ports_.count() ? ports_.open(port) : nullptr;
}

std::unique_ptr<SequencerPort> HostMidiOut::openForSequencer(int index) {
    assert(owner_.isCaller());
    if (!scanned_)
        midiOutGetNumDevs();
    const auto number = static_cast<std::size_t>(index == mapper ? 0 : index);
    if (index < mapper || number >= synths_.count() + ports_.count())
        return nullptr;
    if (number < synths_.count())
        return synths_.openForSequencer(number);
    std::unique_ptr<MidiDevice> port = ports_.open(number - synths_.count());
    return port ? std::make_unique<OutsidePort>(std::move(port)) : nullptr;
}

std::uint32_t HostMidiOut::midiOutOpen(platform::MidiOutHandle& handle, int index) {
    assert(owner_.isCaller());
    if (open_)
        return platform::midiAlreadyOpen;
    if (index < mapper)
        return platform::midiBadDevice;
    if (beforeOpening_)
        beforeOpening_();
    if (!scanned_)
        midiOutGetNumDevs();
    open_ = openDevice(index);
    refused_ = !open_;
    if (refused_)
        return platform::midiBadDevice;
    isPort_ = static_cast<std::size_t>(std::max(index, 0)) >= synths_.count();
    handle = ++lastHandle_;
    return platform::midiSuccess;
}

bool HostMidiOut::isOpen(platform::MidiOutHandle handle) const {
    return open_ && handle == lastHandle_;
}

std::uint32_t HostMidiOut::midiOutClose(platform::MidiOutHandle handle) {
    assert(owner_.isCaller());
    if (!isOpen(handle))
        return platform::midiBadHandle;
    open_.reset();
    return platform::midiSuccess;
}

// Without any device there is nothing to choose, and a missing SoundFont has been reported.
void HostMidiOut::reportSilence() {
    if (refused_ && synths_.count() + ports_.count() > 0)
        notHeard_.log(
            "Nothing is heard because the MIDI device could not be opened. Click \"Stop all "
            "sound\" to open it again, or choose another one in the Setup Toolbar.");
}

std::uint32_t HostMidiOut::midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) {
    assert(owner_.isCaller());
    if (!isOpen(handle)) {
        reportSilence();
        return platform::midiBadHandle;
    }
    const ShortMessage bytes = unpack(message);
    if (bytes.count == 0)
        return platform::midiBadParameter;
    if (beforeSending_)
        beforeSending_();
    if (moment_)
        open_->sendAt(*moment_, bytes);
    else
        open_->send(bytes);
    return platform::midiSuccess;
}

void HostMidiOut::setMoment(std::optional<std::int64_t> counter) {
    assert(owner_.isCaller());
    moment_ = counter;
}

} // namespace velorin::host

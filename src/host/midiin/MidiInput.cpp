// The adapter to RtMidi's inputs.
#include "host/midiin/MidiInput.h"

#include "host/ports/MidiSystems.h"
#include "host/process/SystemClock.h"

#include <rtmidi/RtMidi.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>

namespace velorin::host {

namespace {

constexpr unsigned char firstStatus = 0x80;
constexpr unsigned char firstSystemStatus = 0xF0;

std::unique_ptr<RtMidiIn> makeInput(int api) {
    try {
        auto input = std::make_unique<RtMidiIn>(static_cast<RtMidi::Api>(api), midiClientName);
        input->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        return input;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

/// ALSA's "Midi Through" hands messages from program to program; no keyboard is behind it.
bool isKeyboardPort(const std::string& name) {
    return !name.starts_with("Midi Through") && !name.starts_with(midiClientName);
}

std::optional<unsigned> numberOf(RtMidiIn& input, const std::string& port) {
    const unsigned count = input.getPortCount();
    for (unsigned i = 0; i < count; ++i) {
        if (withoutPortNumbers(input.getPortName(i)) == port)
            return i;
    }
    return std::nullopt;
}

} // namespace

// ALSA's numbers are " 20:0": the client's and the port's.
std::string withoutPortNumbers(const std::string& name) {
    const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
    std::size_t end = name.size();
    while (end > 0 && isDigit(name[end - 1]))
        --end;
    if (end == name.size() || end == 0 || name[end - 1] != ':')
        return name;
    const std::size_t colon = --end;
    while (end > 0 && isDigit(name[end - 1]))
        --end;
    if (end == colon || end == 0 || name[end - 1] != ' ')
        return name;
    return name.substr(0, end - 1);
}

std::vector<std::string> midiInputNames(int api) {
    std::vector<std::string> names;
    const std::unique_ptr<RtMidiIn> input = makeInput(api);
    const unsigned count = input ? input->getPortCount() : 0;
    for (unsigned i = 0; i < count; ++i) {
        if (const std::string name = withoutPortNumbers(input->getPortName(i));
            isKeyboardPort(name))
            names.push_back(name);
    }
    return names;
}

std::optional<platform::MidiInMessage> channelMessage(std::span<const unsigned char> bytes) {
    if (bytes.empty() || bytes[0] < firstStatus || bytes[0] >= firstSystemStatus)
        return std::nullopt;
    const auto isData = [](unsigned char byte) { return byte < firstStatus; };
    if (!std::all_of(bytes.begin() + 1, bytes.end(), isData))
        return std::nullopt;
    platform::MidiInMessage message;
    message.status = bytes[0];
    if (bytes.size() > 1)
        message.data1 = bytes[1];
    if (bytes.size() > 2)
        message.data2 = bytes[2];
    return message;
}

MidiInput::MidiInput(std::string port) : port_(std::move(port)) {}

MidiInput::~MidiInput() {
    input_.reset();
    if (event_ >= 0)
        close(event_);
}

std::unique_ptr<MidiInput> MidiInput::open(int api, const std::string& port) {
    std::unique_ptr<MidiInput> opened(new MidiInput(port));
    opened->event_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    opened->input_ = makeInput(api);
    if (opened->event_ < 0 || !opened->input_)
        return nullptr;
    RtMidiIn& input = *opened->input_;
    input.setCallback([](double, std::vector<unsigned char>* bytes,
                         void* self) { static_cast<MidiInput*>(self)->take(*bytes); },
                      opened.get());
    try {
        const auto number = numberOf(input, port);
        if (!number)
            return nullptr;
        input.openPort(*number, "in");
    } catch (const RtMidiError&) {
        return nullptr;
    }
    return input.isPortOpen() ? std::move(opened) : nullptr;
}

// The moment is that of the call: a system's own time stamps have other clocks.
void MidiInput::take(const std::vector<unsigned char>& bytes) {
    auto message = channelMessage(bytes);
    if (!message)
        return;
    message->counter = steadyNs();
    if (messages_.push(*message))
        eventfd_write(event_, 1);
}

std::optional<platform::MidiInMessage> MidiInput::next() {
    platform::MidiInMessage message;
    if (!messages_.pop(message))
        return std::nullopt;
    return message;
}

void MidiInput::acknowledge() const {
    eventfd_t count = 0;
    eventfd_read(event_, &count);
}

bool MidiInput::isThere() const {
    try {
        return numberOf(*input_, port_).has_value();
    } catch (const RtMidiError&) {
        return false;
    }
}

} // namespace velorin::host

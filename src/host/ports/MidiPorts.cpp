// The adapter to RtMidi's outputs.
#include "host/ports/MidiPorts.h"

#include "host/ports/MidiSystems.h"

#include <rtmidi/RtMidi.h>

#include <system_error>

namespace velorin::host {

namespace {

// Null if the system does not respond after all.
std::unique_ptr<RtMidiOut> makeOutput(int api) {
    try {
        auto output = std::make_unique<RtMidiOut>(static_cast<RtMidi::Api>(api), midiClientName);
        output->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        return output;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

class PortDevice final : public MidiDevice {
public:
    PortDevice(std::unique_ptr<RtMidiOut> output, std::shared_ptr<OnceLogger> vanished)
        : output_(std::move(output)), vanished_(std::move(vanished)) {}

    // A port keeps sounding when its sender is gone, so closing it silences each channel.
    ~PortDevice() override {
        constexpr std::uint8_t allSoundOff = 120;
        constexpr std::uint8_t resetControllers = 121;
        constexpr std::uint8_t allNotesOff = 123;
        for (std::uint8_t channel = 0; channel < 16; ++channel) {
            for (const std::uint8_t controller : {allNotesOff, allSoundOff, resetControllers}) {
                const auto status = static_cast<std::uint8_t>(0xB0 | channel);
                send({{status, controller, 0}, 3});
            }
        }
    }

    void send(const ShortMessage& message) override {
        if (!output_)
            return;
        try {
            output_->sendMessage(message.byte.data(), message.count);
        } catch (const RtMidiError& error) {
            vanished_->log("The MIDI port has gone away (" + error.getMessage() +
                           "). Connect it again, or choose another device in the Setup Toolbar.");
            output_.reset();
        }
    }

private:
    std::unique_ptr<RtMidiOut> output_;
    std::shared_ptr<OnceLogger> vanished_;
};

} // namespace

MidiPorts::MidiPorts(platform::Notices* notices)
    : refused_(notices), vanished_(std::make_shared<OnceLogger>(notices)) {}

MidiPorts::~MidiPorts() = default;

void MidiPorts::beginLook() {
    try {
        begun_ = std::async(std::launch::async, [this] { return look(systems_); });
    } catch (const std::system_error&) {
        // Without a thread the scan looks.
    }
}

void MidiPorts::scan() {
    ports_ = begun_.valid() ? begun_.get() : look(systems_);
}

std::vector<MidiPorts::Port> MidiPorts::look(const MidiSystems& systems) {
    std::vector<Port> found;
    for (const int api : systems.running()) {
        const std::unique_ptr<RtMidiOut> output = makeOutput(api);
        if (!output)
            continue;
        const unsigned count = output->getPortCount();
        for (unsigned i = 0; i < count; ++i) {
            found.push_back({api, output->getPortName(i)});
        }
    }
    return found;
}

// The port is found by its name: numbers change when devices are plugged in or out.
std::unique_ptr<MidiDevice> MidiPorts::open(std::size_t index) {
    const Port& port = ports_[index];
    std::string reason = "it is not there any more";
    try {
        std::unique_ptr<RtMidiOut> output = makeOutput(port.api);
        const unsigned count = output ? output->getPortCount() : 0;
        for (unsigned i = 0; i < count; ++i) {
            if (output->getPortName(i) != port.name)
                continue;
            output->openPort(i, "out");
            if (output->isPortOpen())
                return std::make_unique<PortDevice>(std::move(output), vanished_);
        }
    } catch (const RtMidiError& error) {
        reason = error.getMessage();
    }
    refused_.log("The MIDI port \"" + port.name + "\" cannot be opened (" + reason +
                 "). Choose another device in the Setup Toolbar.");
    return nullptr;
}

} // namespace velorin::host

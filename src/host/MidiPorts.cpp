// The border to RtMidi: each of its systems is asked only if it is there, for RtMidi says on
// standard error, and by exceptions, that it is not.
#include "host/MidiPorts.h"

#include <alsa/asoundlib.h>
#include <jack/jack.h>
#include <rtmidi/RtMidi.h>

#include <cstdarg>

namespace velorin::host {

namespace {

using Api = RtMidi::Api;

const std::string clientName = "Velorin";

void sayNothing(const char*, int, const char*, int, const char*, ...) {}
void sayNothingOfJack(const char*) {}

bool hasAlsaSequencer() {
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, SND_SEQ_NONBLOCK) < 0)
        return false;
    snd_seq_close(sequencer);
    return true;
}

bool hasJackServer() {
    jack_status_t status{};
    jack_client_t* client = jack_client_open(clientName.c_str(), JackNoStartServer, &status);
    if (!client)
        return false;
    jack_client_close(client);
    return true;
}

std::vector<int> systemsThere() {
    std::vector<RtMidi::Api> compiled;
    RtMidi::getCompiledApi(compiled);
    std::vector<int> there;
    for (const Api api : compiled) {
        if ((api == RtMidi::LINUX_ALSA && hasAlsaSequencer()) ||
            (api == RtMidi::UNIX_JACK && hasJackServer()))
            there.push_back(api);
    }
    return there;
}

// Null if the system does not answer after all.
std::unique_ptr<RtMidiOut> makeOutput(int api) {
    try {
        auto output = std::make_unique<RtMidiOut>(static_cast<Api>(api), clientName);
        output->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
        return output;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

class PortDevice final : public MidiDevice {
public:
    PortDevice(std::unique_ptr<RtMidiOut> output, std::shared_ptr<Complaint> vanished)
        : output_(std::move(output)), vanished_(std::move(vanished)) {}

    // A port keeps sounding when its sender leaves, so closing says what it means to each channel.
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
            vanished_->say("The MIDI port has gone away (" + error.getMessage() +
                           "). Connect it again, or choose another device in the Setup Toolbar.");
            output_.reset();
        }
    }

private:
    std::unique_ptr<RtMidiOut> output_;
    std::shared_ptr<Complaint> vanished_;
};

} // namespace

MidiPorts::MidiPorts(platform::Notices* notices)
    : refused_(notices), vanished_(std::make_shared<Complaint>(notices)) {
    snd_lib_error_set_handler(sayNothing);
    jack_set_error_function(sayNothingOfJack);
    jack_set_info_function(sayNothingOfJack);
}

MidiPorts::~MidiPorts() {
    snd_lib_error_set_handler(nullptr);
}

void MidiPorts::scan() {
    ports_.clear();
    for (const int api : systemsThere()) {
        const std::unique_ptr<RtMidiOut> output = makeOutput(api);
        if (!output)
            continue;
        const unsigned count = output->getPortCount();
        for (unsigned i = 0; i < count; ++i) {
            ports_.push_back({api, output->getPortName(i)});
        }
    }
}

// The port is looked for by its name: numbers shift when another device is plugged in or out.
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
    refused_.say("The MIDI port \"" + port.name + "\" cannot be opened (" + reason +
                 "). Choose another device in the Setup Toolbar.");
    return nullptr;
}

} // namespace velorin::host

// Asks the MIDI systems whether they run.
#include "host/ports/MidiSystems.h"

#include <alsa/asoundlib.h>
#include <jack/jack.h>
#include <rtmidi/RtMidi.h>

#include <cstdarg>

namespace velorin::host {

namespace {

int quietUsers = 0;

void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}
void ignoreJackMessage(const char*) {}

bool hasAlsaSequencer() {
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, SND_SEQ_NONBLOCK) < 0)
        return false;
    snd_seq_close(sequencer);
    return true;
}

bool hasJackServer() {
    jack_status_t status{};
    jack_client_t* client = jack_client_open(midiClientName, JackNoStartServer, &status);
    if (!client)
        return false;
    jack_client_close(client);
    return true;
}

} // namespace

MidiSystems::MidiSystems() {
    ++quietUsers;
    snd_lib_error_set_handler(ignoreMessage);
    jack_set_error_function(ignoreJackMessage);
    jack_set_info_function(ignoreJackMessage);
}

MidiSystems::~MidiSystems() {
    if (--quietUsers == 0)
        snd_lib_error_set_handler(nullptr);
}

std::vector<int> MidiSystems::running() const {
    std::vector<RtMidi::Api> compiled;
    RtMidi::getCompiledApi(compiled);
    std::vector<int> there;
    for (const RtMidi::Api api : compiled) {
        if ((api == RtMidi::LINUX_ALSA && hasAlsaSequencer()) ||
            (api == RtMidi::UNIX_JACK && hasJackServer()))
            there.push_back(api);
    }
    return there;
}

} // namespace velorin::host

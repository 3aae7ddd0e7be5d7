// The song loop on a scripted host with windows that do nothing, for tests that count or time what
// the loop itself does.
#pragma once

#include "session/Session.h"
#include "support/ScriptedPlatform.h"

namespace velorin {

/// A device that accepts everything.
struct AcceptingMidi : platform::MidiOut {
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return {}; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle&, int) override { return 0; }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return 0; }
};

/// `Midi` is constructed with the host's time and the other arguments.
template <class Midi>
struct QuietStage {
    template <class... Values>
    explicit QuietStage(Values... values) : midi(host.time, values...) {
        sequencer.PlayTimer = watch.StopWatchNew();
    }

    scripted::ScriptedPlatform host;
    Midi midi;
    platform::Platform platform{host.time,    host.time,  midi,       host.mci,
                                host.dialogs, host.boxes, host.files, host.settings,
                                host.desktop, host.menus, host.time,  host.systemFiles,
                                host.encoder, {}};
    Session session{platform};
    Studio& studio = session.studio;
    NoteSounding& sounding = session.sounding;
    StopWatch& watch = session.watch;
    Sequencer& sequencer = session.sequencer;
};

} // namespace velorin

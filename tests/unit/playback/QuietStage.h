// The song loop on a scripted host with windows that do nothing, for tests that count or time what
// the loop itself does.
#pragma once

#include "playback/NoDesk.h"

#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"

namespace velorin {

/// A device that takes everything.
struct WillingMidi : platform::MidiOut {
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return {}; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle&, int) override { return 0; }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return 0; }
};

/// `Midi` is made with the host's time and whatever else it needs.
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
    PlainSetup setup;
    Studio studio{platform, setup};
    NoDesk desk;
    NoteSounding sounding{studio, desk};
    StopWatch watch{host.time, host.time};
    Sequencer sequencer{studio, sounding, watch, desk};
};

} // namespace velorin

// The host's sound as a whole: everything that the programs' `main` needs to make of it.
#pragma once

#include "host/HostMci.h"
#include "host/HostMidiOut.h"
#include "host/SoundEngine.h"
#include "host/SystemClock.h"
#include "host/Worker.h"

#include <atomic>
#include <filesystem>
#include <memory>

namespace velorin::host {

class HostSound {
public:
    /// Opens nothing yet; what is sent meanwhile waits.
    HostSound(const std::filesystem::path& programFolder, const RecordingFolders& recordings);
    ~HostSound(); ///< waits two seconds at most for a sound server that hangs
    HostSound(const HostSound&) = delete;
    HostSound& operator=(const HostSound&) = delete;

    /// Returns at once: the sound card and the SoundFonts are opened each by a thread of its own.
    /// The latter finishes the recordings first that a crash has left.
    void begin();

    [[nodiscard]] SystemClock& clock() { return clock_; }
    [[nodiscard]] SoundEngine& engine() { return *engine_; }
    [[nodiscard]] platform::MidiOut& midi() { return midi_; }
    [[nodiscard]] platform::Mci& mci() { return mci_; }

    // On the control thread. A card that is fed silence keeps the processor busy, so the stream
    // rests while nothing sounds and nobody is at the program. Beginning anew takes some 10 ms.
    void restIfQuiet(); ///< not while a song plays: its next note would come late
    [[nodiscard]] bool isResting() const { return resting_; }
    void lookAfterCard(); ///< now and then: goes over to another one if it has gone away
    void wake();          ///< the user is about to do something; a message wakes the stream too

private:
    void lookForCard();

    SystemClock clock_;
    std::shared_ptr<SoundEngine> engine_; ///< the jobs hold it too
    std::shared_ptr<std::atomic<bool>> looksForCard_ = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<Worker> cards_ = std::make_unique<Worker>(true); ///< opens and closes the card
    Worker worker_{true}; ///< loads SoundFonts; ends before the engine
    SynthDevices synths_;
    MidiPorts ports_;
    HostMidiOut midi_;
    HostMci mci_;
    bool resting_ = false;
};

} // namespace velorin::host

// The host's sound as a whole: creates and owns its parts.
#pragma once

#include "host/engine/SoundEngine.h"
#include "host/mci/HostMci.h"
#include "host/midiout/HostMidiOut.h"
#include "host/process/SystemClock.h"
#include "host/process/Worker.h"
#include "platform/OwnerThread.h"

#include <atomic>
#include <filesystem>
#include <memory>

namespace velorin::host {

class HostSound {
public:
    /// Opens nothing yet; messages sent before `begin` wait.
    HostSound(const std::filesystem::path& programFolder, const RecordingFolders& recordings);
    ~HostSound(); ///< waits two seconds at most for a sound server that hangs
    HostSound(const HostSound&) = delete;
    HostSound& operator=(const HostSound&) = delete;

    /// Returns at once: one thread opens the sound card, another loads the SoundFonts. The second
    /// one first completes the recordings that a crash has left.
    void begin();

    [[nodiscard]] SystemClock& clock() { return clock_; }
    [[nodiscard]] SoundEngine& engine() { return *engine_; }
    [[nodiscard]] platform::MidiOut& midi() { return midi_; }
    [[nodiscard]] platform::Mci& mci() { return mci_; }

    // On the control thread. A card that plays silence keeps the processor busy, so the stream is
    // stopped while nothing sounds and the user is away. Starting it again takes some 10 ms.
    void idleIfQuiet(); ///< not while a song plays: its next note would come late
    [[nodiscard]] bool isIdle() const { return idle_; }
    void checkCard(); ///< called from time to time: replaces a lost card
    void wake();      ///< starts an idle stream; a message does so too

private:
    void reconnectCard();

    platform::OwnerThread owner_; ///< the control thread
    SystemClock clock_;
    std::shared_ptr<SoundEngine> engine_; ///< the jobs hold it too
    std::shared_ptr<std::atomic<bool>> reconnecting_ = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<Worker> cards_ = std::make_unique<Worker>(true); ///< opens and closes the card
    Worker worker_{true}; ///< loads SoundFonts; ends before the engine
    SynthDevices synths_;
    MidiPorts ports_;
    HostMidiOut midi_;
    HostMci mci_;
    bool idle_ = false;
};

} // namespace velorin::host

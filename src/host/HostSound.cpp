// Putting the sound together.
#include "host/HostSound.h"

#include <cstdlib>

namespace velorin::host {

namespace {

std::filesystem::path homeFolder() {
    const char* home = std::getenv("HOME");
    return home ? home : "";
}

} // namespace

HostSound::HostSound(const std::filesystem::path& programFolder, const RecordingFolders& recordings)
    : synths_(clock_, engine_, worker_,
              findSoundFonts(soundFontFolders(programFolder, homeFolder()))),
      midi_(
          synths_, ports_, [this] { worker_.post([this] { engine_.regainCard(); }); },
          [this] { wake(); }),
      mci_({engine_,
            [this](int device) {
                wake(); // the synthesizer may be there from the file before
                return midi_.openForSequencer(device);
            },
            [this] { return midi_.isPortOpen(); }, [this] { wake(); }, recordings}) {
    if (synths_.count() == 0)
        noFont_.say("no SoundFont found; the built-in synthesizer cannot play");
    worker_.post([this] { engine_.start(); });
    worker_.post([recordings] { finishLeftRecordings(recordings); });
    engine_.onAdded = [this] { wake(); };
}

// A file's own rests are not slept through either.
void HostSound::restIfQuiet() {
    if (resting_ || !engine_.isQuiet() || mci_.isRunning())
        return;
    resting_ = true;
    worker_.post([this] { engine_.rest(); });
}

void HostSound::lookAfterCard() {
    if (!resting_ && engine_.hasLostCard())
        worker_.post([this] { engine_.regainCard(); });
}

void HostSound::wake() {
    if (!resting_)
        return;
    resting_ = false;
    worker_.post([this] { engine_.start(); });
}

} // namespace velorin::host

// Putting the sound together.
#include "host/HostSound.h"

#include <chrono>
#include <cstdlib>

namespace velorin::host {

namespace {

std::filesystem::path homeFolder() {
    const char* home = std::getenv("HOME");
    return home ? home : "";
}

} // namespace

HostSound::HostSound(const std::filesystem::path& programFolder, const RecordingFolders& recordings)
    : engine_(std::make_shared<SoundEngine>(recordings.notices)),
      synths_(clock_, *engine_, worker_,
              findSoundFonts(soundFontFolders(programFolder, homeFolder())), recordings.notices),
      ports_(recordings.notices),
      midi_(
          synths_, ports_, [this] { lookForCard(); }, [this] { wake(); }, recordings.notices),
      mci_({*engine_,
            [this](int device) {
                wake(); // the synthesizer may be there from the file before
                return midi_.openForSequencer(device);
            },
            [this] { return midi_.isPortOpen(); }, [this] { wake(); }, recordings}) {
    if (synths_.count() == 0)
        Complaint(recordings.notices)
            .say("No SoundFont was found, so the built-in synthesizer is silent. Install one, for "
                 "example the package timgm6mb-soundfont, and start Velorin again.");
    cards_->post([engine = engine_] { engine->start(); });
    worker_.post([recordings] { finishLeftRecordings(recordings); });
    engine_->onAdded = [this] { wake(); };
}

// A call of a sound server that hangs never returns. What it uses is left behind then, and ends
// with the process.
HostSound::~HostSound() {
    using namespace std::chrono_literals;
    engine_->onAdded = nullptr;
    engine_->stopLooking();
    cards_->post([engine = engine_] { engine->end(); });
    if (!cards_->waitUntilIdle(2s))
        static_cast<void>(cards_.release());
}

void HostSound::begin() {
    cards_->release();
    worker_.release();
}

// One look at a time: a card that does not keep the pace takes three seconds to be found out, and
// "Stop all" need not start another look meanwhile.
void HostSound::lookForCard() {
    if (looksForCard_->exchange(true))
        return;
    cards_->post([engine = engine_, looks = looksForCard_] {
        engine->regainCard();
        looks->store(false);
    });
}

// A file's own rests are not slept through either.
void HostSound::restIfQuiet() {
    if (resting_ || !engine_->isQuiet() || mci_.isRunning())
        return;
    resting_ = true;
    cards_->post([engine = engine_] { engine->rest(); });
}

void HostSound::lookAfterCard() {
    if (!resting_ && engine_->hasLostCard())
        lookForCard();
}

void HostSound::wake() {
    if (!resting_)
        return;
    resting_ = false;
    cards_->post([engine = engine_] { engine->start(); });
}

} // namespace velorin::host

// Creates and connects the parts of the sound.
#include "host/sound/HostSound.h"

#include <cassert>
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
          synths_, ports_, [this] { reconnectCard(); }, [this] { wake(); }, recordings.notices),
      mci_({*engine_,
            [this](int device) {
                wake(); // no source is added if the synthesizer is loaded already
                return midi_.openForSequencer(device);
            },
            [this] { return midi_.isPortOpen(); }, [this] { wake(); }, recordings}) {
    if (synths_.count() == 0)
        OnceLogger(recordings.notices)
            .log("No SoundFont was found, so the built-in synthesizer is silent. Install one, for "
                 "example the package timgm6mb-soundfont, and start Velorin again.");
    cards_->post([engine = engine_] { engine->start(); });
    worker_.post([recordings] { finishAbandonedRecordings(recordings); });
    engine_->onAdded = [this] { wake(); };
}

// A call to a hanging sound server never returns. The thread and what it uses are then leaked until
// the process ends.
HostSound::~HostSound() {
    using namespace std::chrono_literals;
    engine_->onAdded = nullptr;
    engine_->stopReconnecting();
    cards_->post([engine = engine_] { engine->end(); });
    if (!cards_->waitUntilIdle(2s))
        static_cast<void>(cards_.release());
}

void HostSound::begin() {
    cards_->release();
    worker_.release();
}

// One attempt at a time: it takes three seconds to see that a card does not keep the pace, and
// "Stop all" need not start another attempt meanwhile.
void HostSound::reconnectCard() {
    if (reconnecting_->exchange(true))
        return;
    cards_->post([engine = engine_, looks = reconnecting_] {
        engine->reconnectCard();
        looks->store(false);
    });
}

// The stream also stays on during the rests of a file.
void HostSound::idleIfQuiet() {
    assert(owner_.isCaller());
    if (idle_ || !engine_->isQuiet() || mci_.isRunning())
        return;
    idle_ = true;
    cards_->post([engine = engine_] { engine->stopIfQuiet(); });
}

void HostSound::checkCard() {
    assert(owner_.isCaller());
    if (!idle_ && engine_->hasLostCard())
        reconnectCard();
}

void HostSound::wake() {
    assert(owner_.isCaller());
    if (!idle_)
        return;
    idle_ = false;
    cards_->post([engine = engine_] { engine->start(); });
}

} // namespace velorin::host

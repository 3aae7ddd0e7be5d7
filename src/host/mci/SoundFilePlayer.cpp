// Creates a stream for each play.
#include "host/mci/SoundFilePlayer.h"

#include "host/engine/SoundEngine.h"
#include "host/mci/FadingStreams.h"

namespace velorin::host {

SoundFilePlayer::~SoundFilePlayer() {
    endStream();
}

void SoundFilePlayer::endStream() {
    if (!playing_)
        return;
    place_ = playing_->position();
    fading_.end(std::move(playing_));
    playing_.reset();
    paused_ = false;
}

std::int64_t SoundFilePlayer::position() {
    return playing_ ? playing_->position() : place_;
}

TransportMode SoundFilePlayer::mode() {
    if (!playing_ || playing_->hasEnded())
        return TransportMode::stopped;
    return paused_ ? TransportMode::paused : TransportMode::playing;
}

void SoundFilePlayer::play(std::int64_t from, std::int64_t to) {
    endStream();
    playing_ = std::make_shared<FileStream>(file_, from, to);
    fading_.engine().add(playing_);
}

void SoundFilePlayer::pause() {
    if (mode() != TransportMode::playing)
        return;
    paused_ = true;
    playing_->setPaused(true);
}

void SoundFilePlayer::resume() {
    if (mode() != TransportMode::paused)
        return;
    paused_ = false;
    playing_->setPaused(false);
}

void SoundFilePlayer::stop() {
    endStream();
}

void SoundFilePlayer::seek(std::int64_t position) {
    endStream();
    place_ = position;
}

} // namespace velorin::host

// Plays a WAV or MP3 file in the engine's stream.
#pragma once

#include "host/mci/FileStream.h"
#include "host/mci/Transport.h"

namespace velorin::host {

class FadingStreams;

class SoundFilePlayer final : public Transport {
public:
    SoundFilePlayer(FadingStreams& fading, std::shared_ptr<SoundReader> file)
        : fading_(fading), file_(std::move(file)) {}
    ~SoundFilePlayer() override;
    SoundFilePlayer(const SoundFilePlayer&) = delete;
    SoundFilePlayer& operator=(const SoundFilePlayer&) = delete;

    std::int64_t unitsPerSecond() const override { return file_->rateHz(); }
    bool countsFrames() const override { return true; }
    std::int64_t length() const override { return file_->frames(); }
    std::int64_t position() override;
    TransportMode mode() override;
    void play(std::int64_t from, std::int64_t to) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void seek(std::int64_t position) override;

private:
    void endStream();

    FadingStreams& fading_;
    std::shared_ptr<SoundReader> file_;
    std::shared_ptr<FileStream> playing_; ///< null unless playing or paused
    bool paused_ = false;
    std::int64_t place_ = 0; ///< while there is no stream
};

} // namespace velorin::host

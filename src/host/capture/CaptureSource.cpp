// Recording from the engine, and from the sound card's input through SDL.
#include "host/capture/CaptureSource.h"

#include "host/engine/FramePacer.h"
#include "host/engine/SdlAudio.h"
#include "host/engine/SoundEngine.h"
#include "host/process/StreamThread.h"

namespace velorin::host {

namespace {

class EngineCapture final : public CaptureSource {
public:
    explicit EngineCapture(SoundEngine& engine) : engine_(engine) {}
    ~EngineCapture() override { stop(); }

    bool start(std::shared_ptr<SoundTap> tap) override {
        stop();
        tap_ = tap.get();
        engine_.add(std::move(tap));
        return true;
    }

    void stop() override {
        if (tap_)
            engine_.remove(tap_);
        tap_ = nullptr;
    }

private:
    SoundEngine& engine_;
    SoundTap* tap_ = nullptr; ///< owned by the engine
};

class CardCapture final : public CaptureSource {
public:
    ~CardCapture() override {
        if (device_ != 0)
            SDL_CloseAudioDevice(device_);
    }

    bool open() {
        SDL_AudioSpec wanted{};
        wanted.freq = streamRateHz;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = SoundEngine::bufferFrames;
        wanted.callback = [](void* self, Uint8* bytes, int count) {
            static_cast<CardCapture*>(self)->take(reinterpret_cast<const float*>(bytes),
                                                  count / static_cast<int>(2 * sizeof(float)));
        };
        wanted.userdata = this;
        device_ = audio_.open(SdlAudio::Direction::input, wanted);
        return device_ != 0;
    }

    bool start(std::shared_ptr<SoundTap> tap) override {
        stop();
        tap_ = std::move(tap);
        SDL_PauseAudioDevice(device_, 0);
        return true;
    }

    // The call returns when the callback has.
    void stop() override { SDL_PauseAudioDevice(device_, 1); }

private:
    // Frames that do not fill a block wait for the next call. For a lost card SDL returns silence
    // without waiting; the pacer records it in real time.
    VELORIN_STREAM_THREAD void take(const float* stereo, int frames) {
        const StreamThreadScope scope;
        if (SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED)
            pacer_.wait(frames);
        for (int frame = 0; frame < frames; ++frame) {
            const auto at = 2 * static_cast<std::size_t>(filled_);
            block_.sound[at] = stereo[2 * frame];
            block_.sound[at + 1] = stereo[2 * frame + 1];
            if (++filled_ < blockFrames)
                continue;
            tap_->write(block_);
            block_.firstFrame += blockFrames;
            filled_ = 0;
        }
    }

    SdlAudio audio_;
    SDL_AudioDeviceID device_ = 0;
    std::shared_ptr<SoundTap> tap_;
    TappedBlock block_;
    int filled_ = 0;
    FramePacer pacer_; ///< once the card is lost
};

} // namespace

std::unique_ptr<CaptureSource> captureOf(SoundEngine& engine) {
    return std::make_unique<EngineCapture>(engine);
}

std::unique_ptr<CaptureSource> captureOfCard() {
    auto card = std::make_unique<CardCapture>();
    return card->open() ? std::move(card) : nullptr;
}

} // namespace velorin::host

// The engine's tap, and the sound card's input through SDL.
#include "host/mci/CaptureSource.h"

#include "host/ClockPace.h"
#include "host/SoundEngine.h"

#include <SDL2/SDL.h>

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
    SoundTap* tap_ = nullptr; ///< the engine keeps it
};

class CardCapture final : public CaptureSource {
public:
    ~CardCapture() override {
        if (device_ != 0)
            SDL_CloseAudioDevice(device_);
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
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
        SDL_AudioSpec obtained{};
        device_ = SDL_OpenAudioDevice(nullptr, 1, &wanted, &obtained, 0);
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
    // Frames that do not fill a block wait for the next call. Of a card that has gone away SDL
    // gives silence, as fast as it is taken; it is recorded at the rate of real time.
    void take(const float* stereo, int frames) {
        if (SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED)
            pace_.wait(frames);
        for (int frame = 0; frame < frames; ++frame) {
            const auto at = static_cast<std::size_t>(2 * filled_);
            block_.sound[at] = stereo[2 * frame];
            block_.sound[at + 1] = stereo[2 * frame + 1];
            if (++filled_ < blockFrames)
                continue;
            tap_->write(block_);
            block_.firstFrame += blockFrames;
            filled_ = 0;
        }
    }

    SDL_AudioDeviceID device_ = 0;
    std::shared_ptr<SoundTap> tap_;
    TappedBlock block_;
    int filled_ = 0;
    ClockPace pace_; ///< once the card has gone
};

} // namespace

std::unique_ptr<CaptureSource> captureOf(SoundEngine& engine) {
    return std::make_unique<EngineCapture>(engine);
}

std::unique_ptr<CaptureSource> captureOfCard() {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return nullptr;
    auto card = std::make_unique<CardCapture>();
    return card->open() ? std::move(card) : nullptr;
}

} // namespace velorin::host

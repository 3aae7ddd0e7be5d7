// One lock for what SDL does without one.
#include "host/card/SdlCard.h"

#include <SDL.h>

#include <mutex>

namespace velorin::host {

namespace {

std::mutex& sdlMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

SdlAudio::SdlAudio() {
    const std::lock_guard lock(sdlMutex());
    works_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

SdlAudio::~SdlAudio() {
    if (!works_)
        return;
    const std::lock_guard lock(sdlMutex());
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

platform::Result<std::unique_ptr<CardStream>> SdlCard::open(CardRequest request) {
    // SDL must not handle the signals that end the program.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorin");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    std::unique_ptr<SdlCard> card(new SdlCard(std::move(request.call)));
    SDL_AudioSpec wanted{};
    wanted.freq = request.rateHz;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(request.bufferFrames);
    wanted.callback = [](void* self, Uint8* bytes, int count) {
        static_cast<SdlCard*>(self)->call_(reinterpret_cast<float*>(bytes),
                                           count / static_cast<int>(2 * sizeof(float)));
    };
    wanted.userdata = card.get();
    if (card->audio_.works()) {
        const std::lock_guard lock(sdlMutex()); // SDL's list of devices has none either
        SDL_AudioSpec obtained{};
        card->device_ = SDL_OpenAudioDevice(
            nullptr, request.direction == CardDirection::input ? 1 : 0, &wanted, &obtained, 0);
    }
    if (card->device_ == 0)
        return platform::Failure{SDL_GetError()};
    return std::unique_ptr<CardStream>(std::move(card));
}

SdlCard::~SdlCard() {
    if (device_ != 0)
        SDL_CloseAudioDevice(device_);
}

void SdlCard::run() {
    SDL_PauseAudioDevice(device_, 0);
}

void SdlCard::pause() {
    SDL_PauseAudioDevice(device_, 1); // waits for the end of a call
}

bool SdlCard::isLost() const {
    return SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
}

} // namespace velorin::host

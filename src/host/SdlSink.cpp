// The border to SDL, of which the audio part alone is used.
#include "host/SdlSink.h"

#include "host/SoundSource.h"

#include <SDL.h>

namespace velorin::host {

namespace {

void fill(void* user, Uint8* bytes, int count) {
    const int frames = count / static_cast<int>(2 * sizeof(float));
    (*static_cast<PullStream*>(user))(reinterpret_cast<float*>(bytes), frames);
}

} // namespace

std::unique_ptr<SdlSink> SdlSink::open(PullStream pull, int bufferFrames, std::string& reason) {
    // Interrupt and termination end the program as they always do.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorin");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    std::unique_ptr<SdlSink> sink(new SdlSink(std::move(pull)));
    SDL_AudioSpec wanted{};
    wanted.freq = streamRateHz;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(bufferFrames);
    wanted.callback = fill;
    wanted.userdata = &sink->pull_;
    SDL_AudioSpec obtained{};
    sink->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, 0);
    if (sink->device_ == 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    SDL_PauseAudioDevice(sink->device_, 0);
    return sink;
}

SdlSink::~SdlSink() {
    if (device_ != 0)
        SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SdlSink::isLost() const {
    return SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
}

} // namespace velorin::host

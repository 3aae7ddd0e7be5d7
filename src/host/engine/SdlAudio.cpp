// One lock for what SDL does without one.
#include "host/engine/SdlAudio.h"

#include <mutex>

namespace velorin::host {

namespace {

std::mutex& usersMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

SdlAudio::SdlAudio() {
    const std::lock_guard lock(usersMutex());
    works_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

SdlAudio::~SdlAudio() {
    if (!works_)
        return;
    const std::lock_guard lock(usersMutex());
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

SDL_AudioDeviceID SdlAudio::open(Direction direction, const SDL_AudioSpec& wanted) const {
    if (!works_)
        return 0;
    const std::lock_guard lock(usersMutex());
    SDL_AudioSpec obtained{};
    return SDL_OpenAudioDevice(nullptr, direction == Direction::input ? 1 : 0, &wanted, &obtained,
                               0);
}

} // namespace velorin::host

// SDL's audio part, for several threads.
#pragma once

#include <SDL.h>

namespace velorin::host {

/// SDL's audio part is there while one of these lives. SDL counts its users without a lock: an
/// output that closes on one thread while an input opens on another would take the library away
/// from the other. Its list of devices has no lock either. So every device is opened here.
class SdlAudio {
public:
    SdlAudio();
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    enum class Direction { output, input };

    /// Opens the default device, paused. Returns 0 if there is none or it cannot be used;
    /// `SDL_GetError` then says why. The caller closes the device before this ends. From any
    /// thread.
    [[nodiscard]] SDL_AudioDeviceID open(Direction direction, const SDL_AudioSpec& wanted) const;

private:
    bool works_; ///< SDL has a driver
};

} // namespace velorin::host

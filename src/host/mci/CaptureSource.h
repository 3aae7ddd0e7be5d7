// Where a recording takes its sound from.
#pragma once

#include "host/SoundTap.h"

#include <memory>

namespace velorin::host {

/// For the control thread.
class CaptureSource {
public:
    virtual ~CaptureSource() = default;

    /// From now on every sample goes to the tap, from the next one on. Returns whether it could
    /// begin.
    [[nodiscard]] virtual bool start(std::shared_ptr<SoundTap> tap) = 0;

    /// What comes after this need not go to the tap.
    virtual void stop() = 0;
};

class SoundEngine;

/// What the engine plays, exactly as it is heard.
[[nodiscard]] std::unique_ptr<CaptureSource> captureOf(SoundEngine& engine);

/// The sound card's input; null if there is none.
[[nodiscard]] std::unique_ptr<CaptureSource> captureOfCard();

} // namespace velorin::host

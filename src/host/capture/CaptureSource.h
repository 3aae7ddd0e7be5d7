// Where a recording takes its sound from.
#pragma once

#include "host/engine/SoundTap.h"

#include <memory>

namespace velorin::host {

/// For the control thread.
class CaptureSource {
public:
    virtual ~CaptureSource() = default;

    /// Writes every sample to the tap from now on. False if that cannot begin.
    [[nodiscard]] virtual bool start(std::shared_ptr<SoundTap> tap) = 0;

    /// Samples after this need not go to the tap.
    virtual void stop() = 0;
};

class SoundEngine;

/// What the engine plays, exactly as it is heard.
[[nodiscard]] std::unique_ptr<CaptureSource> captureOf(SoundEngine& engine);

/// The sound card's input; null if there is none.
[[nodiscard]] std::unique_ptr<CaptureSource> captureOfCard();

} // namespace velorin::host

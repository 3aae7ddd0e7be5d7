// Ended streams that fade out before they are removed from the engine.
#pragma once

#include "host/mci/FileStream.h"

#include <memory>
#include <vector>

namespace velorin::host {

class SoundEngine;

/// For the control thread.
class FadingStreams {
public:
    explicit FadingStreams(SoundEngine& engine) : engine_(engine) {}
    ~FadingStreams();
    FadingStreams(const FadingStreams&) = delete;
    FadingStreams& operator=(const FadingStreams&) = delete;

    [[nodiscard]] SoundEngine& engine() { return engine_; }

    /// Ends a stream that the engine plays: it fades out.
    void end(std::shared_ptr<FileStream> stream);

    /// Removes the silent ones from the engine. Called from time to time.
    void sweep();

private:
    SoundEngine& engine_;
    std::vector<std::shared_ptr<FileStream>> fading_;
};

} // namespace velorin::host

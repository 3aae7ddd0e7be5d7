// Streams that have been told to end and fade out before the engine lets go of them.
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

    /// Ends a stream that the engine plays.
    void end(std::shared_ptr<FileStream> stream);

    /// Takes those from the engine that have become silent. Called now and then.
    void sweep();

private:
    SoundEngine& engine_;
    std::vector<std::shared_ptr<FileStream>> fading_;
};

} // namespace velorin::host

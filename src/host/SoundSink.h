// Where the stream goes: something that pulls it at the rate of real time.
#pragma once

#include <functional>

namespace velorin::host {

/// Writes the next `frames` frames of the stream, left and right in turn.
using PullStream = std::function<void(float* stereo, int frames)>;

/// Pulls from the moment it is made to the end of its destructor.
class SoundSink {
public:
    virtual ~SoundSink() = default;

    /// Whether there is a sound card behind it, which has not gone away. From any thread.
    [[nodiscard]] virtual bool hasCard() const = 0;
};

} // namespace velorin::host

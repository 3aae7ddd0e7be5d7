// Where the stream goes: something that pulls it at the rate of real time.
#pragma once

#include <cstdint>
#include <functional>

namespace velorin::host {

/// Writes the next `frames` frames of the stream, left and right in turn. They are asked for at
/// `atNs`, nanoseconds of the steady clock: by a card at the moment of the call, by a clock at the
/// moment at which the call was due.
using PullStream = std::function<void(float* stereo, int frames, std::int64_t atNs)>;

/// Pulls from the moment it is made to the end of its destructor.
class SoundSink {
public:
    virtual ~SoundSink() = default;

    /// Whether there is a sound card behind it, which has not gone away. From any thread.
    [[nodiscard]] virtual bool hasCard() const = 0;
};

} // namespace velorin::host

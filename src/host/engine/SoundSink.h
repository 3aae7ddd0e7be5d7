// Something that pulls the stream in real time.
#pragma once

#include <cstdint>
#include <functional>

namespace velorin::host {

/// Writes the next `frames` frames of the stream, left and right interleaved. `atNs` is the moment
/// of the request, in nanoseconds of the steady clock: for a card the moment of the call, for a
/// clock the moment at which the call was due. Returns the moment before which the next call would
/// be too early: a sink for a card waits for it.
using PullStream = std::function<std::int64_t(float* stereo, int frames, std::int64_t atNs)>;

/// Pulls until the end of its destructor.
class SoundSink {
public:
    virtual ~SoundSink() = default;

    /// True if it plays on a sound card that is not lost. From any thread.
    [[nodiscard]] virtual bool hasCard() const = 0;
};

} // namespace velorin::host

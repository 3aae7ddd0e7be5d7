// A source of sound in the stream: it adds its part to every block.
#pragma once

#include "host/process/StreamThread.h"

#include <array>
#include <cstdint>

namespace velorin::host {

class StreamClock;

/// The stream: 44,100 frames a second, left and right interleaved, full scale at 1.0, made in
/// blocks.
constexpr int streamRateHz = 44100;
constexpr int blockFrames = 64;
using SoundBlock = std::array<float, 2 * blockFrames>;

class SoundSource {
public:
    virtual ~SoundSource() = default;

    /// Adds this source's part to the block that begins at `firstFrame`.
    VELORIN_STREAM_THREAD virtual void mix(SoundBlock& block, std::int64_t firstFrame,
                                           const StreamClock& clock) = 0;

    /// True if the source has all that it prepares ahead for the stream. For the control thread,
    /// when the stream is pulled faster than real time.
    [[nodiscard]] virtual bool isReadAhead() const { return true; }
};

} // namespace velorin::host

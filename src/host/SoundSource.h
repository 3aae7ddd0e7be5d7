// What sounds in the stream: each source adds its part to every block.
#pragma once

#include <array>
#include <cstdint>

namespace velorin::host {

class StreamClock;

/// The stream: 44,100 frames a second, left and right in turn, full scale at 1.0, made in blocks.
constexpr int streamRateHz = 44100;
constexpr int blockFrames = 64;
using SoundBlock = std::array<float, 2 * blockFrames>;

class SoundSource {
public:
    virtual ~SoundSource() = default;

    /// Adds this source's part to the block that begins at `firstFrame`. Called by the stream's
    /// thread: takes no lock, allocates nothing, touches no file.
    virtual void mix(SoundBlock& block, std::int64_t firstFrame, const StreamClock& clock) = 0;

    /// Whether all is there that this source keeps ready for the stream. For the control thread, of
    /// a stream that is pulled faster than it sounds.
    [[nodiscard]] virtual bool isReadAhead() const { return true; }
};

} // namespace velorin::host

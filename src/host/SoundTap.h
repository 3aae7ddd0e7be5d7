// A second outlet of the stream: every block that is played, for one reader.
#pragma once

#include "host/SoundSource.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <atomic>
#include <cstdint>

namespace velorin::host {

struct TappedBlock {
    std::int64_t firstFrame = 0;
    SoundBlock sound{};
};

/// The stream's thread writes, one other thread reads.
class SoundTap {
public:
    /// Holds `seconds` of sound; what the reader has not fetched by then is lost.
    explicit SoundTap(double seconds)
        : blocks_(static_cast<std::size_t>(seconds * streamRateHz / blockFrames) + 1) {}

    /// The next block; false if there is none yet.
    bool read(TappedBlock& block) { return blocks_.pop(block); }

    /// Blocks that found no room.
    [[nodiscard]] std::int64_t lost() const { return lost_.load(std::memory_order_relaxed); }

    /// For the stream's thread.
    void write(const TappedBlock& block) {
        if (!blocks_.push(block))
            lost_.fetch_add(1, std::memory_order_relaxed);
    }

private:
    boost::lockfree::spsc_queue<TappedBlock> blocks_;
    std::atomic<std::int64_t> lost_{0};
};

} // namespace velorin::host

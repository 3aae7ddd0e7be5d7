// A queue that gets every block that is played, for one reader.
#pragma once

#include "host/engine/SoundSource.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <atomic>
#include <cassert>
#include <cstdint>

namespace velorin::host {

struct TappedBlock {
    std::int64_t firstFrame = 0;
    SoundBlock sound{};
};

/// The stream's thread writes, one other thread reads.
class SoundTap {
public:
    /// Holds `seconds` of sound. When it is full, new blocks are lost.
    explicit SoundTap(double seconds)
        : blocks_(static_cast<std::size_t>(seconds * streamRateHz / blockFrames) + 1) {}

    /// The next block; false if there is none yet.
    [[nodiscard]] bool read(TappedBlock& block) {
        assert(!StreamThreadScope::isActive());
        return blocks_.pop(block);
    }

    /// The number of lost blocks.
    [[nodiscard]] std::int64_t lost() const { return lost_.load(std::memory_order_relaxed); }

    /// For the stream's thread.
    VELORIN_STREAM_THREAD void write(const TappedBlock& block) {
        assert(StreamThreadScope::isActive());
        if (!blocks_.push(block))
            lost_.fetch_add(1, std::memory_order_relaxed);
    }

private:
    boost::lockfree::spsc_queue<TappedBlock> blocks_;
    std::atomic<std::int64_t> lost_{0};
};

} // namespace velorin::host

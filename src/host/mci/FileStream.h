// A sound file that plays in the stream, from one frame to another.
#pragma once

#include "host/engine/SoundSource.h"
#include "host/media/SoundReader.h"
#include "platform/OwnerThread.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

namespace velorin::host {

/// A thread of its own reads, decodes and changes the rate, up to a second ahead; the stream's
/// thread takes what is there. Everything else is for the control thread.
class FileStream final : public SoundSource {
public:
    /// Plays frames [from, to) of the file. Nobody else may read it meanwhile.
    FileStream(std::shared_ptr<SoundReader> file, std::int64_t from, std::int64_t to);
    ~FileStream() override;
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;

    void setPaused(bool paused);

    /// Fades out within a block. The file is free when this returns.
    void end();

    /// The frame of the file that is playing; `to` at the end.
    [[nodiscard]] std::int64_t position() const;

    [[nodiscard]] bool hasEnded() const { return ended_; }  ///< all of it was played
    [[nodiscard]] bool isSilent() const { return silent_; } ///< it adds no more sound

    VELORIN_STREAM_THREAD void mix(SoundBlock& block, std::int64_t firstFrame,
                                   const StreamClock& clock) override;
    [[nodiscard]] bool isReadAhead() const override;

private:
    void decode();
    [[nodiscard]] bool push(const float* samples, std::size_t count);
    void stopDecoding();

    platform::OwnerThread owner_; ///< the control thread
    std::shared_ptr<SoundReader> file_;
    std::int64_t from_;
    std::int64_t to_;

    boost::lockfree::spsc_queue<float> ready_{2 * streamRateHz};
    std::atomic<bool> decodedAll_{false};
    std::atomic<bool> paused_{false};
    std::atomic<bool> ending_{false};
    std::atomic<bool> ended_{false};
    std::atomic<bool> silent_{false};
    std::atomic<std::int64_t> playedFrames_{0}; ///< of the stream

    // Of the stream's thread.
    SoundBlock own_{};
    float gain_ = 1.0F;

    std::mutex mutex_; ///< never taken by the stream's thread
    std::condition_variable changed_;
    bool stopping_ = false;
    std::thread thread_;
};

} // namespace velorin::host

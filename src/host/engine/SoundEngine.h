// The sound engine: mixes everything that sounds into one stream for the sound card.
#pragma once

#include "host/engine/SoundSink.h"
#include "host/engine/SoundSource.h"
#include "host/engine/StreamClock.h"
#include "host/process/OnceLogger.h"
#include "host/process/StreamThread.h"
#include "platform/OwnerThread.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace velorin::host {

class CardSink;
class SoundTap;

/// Sources and taps are added and removed on the control thread; the stream is pulled on another
/// thread. The control thread hands over the whole set of them by one pointer, so there is no queue
/// between the two that could be full.
class SoundEngine {
public:
    /// Create it before other threads: it writes the environment. With `notices`, which must live
    /// until `stopReconnecting`, a missing card is also reported in the window.
    explicit SoundEngine(platform::Notices* notices = nullptr);
    ~SoundEngine(); ///< ends the stream
    SoundEngine(const SoundEngine&) = delete;
    SoundEngine& operator=(const SoundEngine&) = delete;

    /// Frames in a buffer of the sound card, 5.8 ms.
    static constexpr int bufferFrames = 256;
    /// The delay from a message's timestamp to its frame: one buffer, and a block for the jitter of
    /// the card's pulls.
    static constexpr int delayFrames = bufferFrames + blockFrames;

    /// Starts the stream if it is not running: to the sound card, or by a clock if there is none,
    /// which is reported. May take some 10 ms; may be called from any thread.
    void start();

    /// Stops the stream until `start`, if it is quiet. May be called from any thread.
    void stopIfQuiet();

    /// True if nothing has sounded for ten seconds and there is no tap.
    [[nodiscard]] bool isQuiet() const {
        return quietBlocks_.load(std::memory_order_relaxed) >= quietBlocksToIdle;
    }

    /// Called on the control thread when a source or a tap is added: a stopped stream would not
    /// play it.
    std::function<void()> onAdded;

    /// True if the sound card is lost; the stream then goes on by the clock. Never blocks.
    [[nodiscard]] bool hasLostCard();

    /// If the card is lost, reports that and switches to the card that is there now, if there is
    /// one that keeps the pace. May take three seconds; may be called from any thread.
    void reconnectCard();

    /// From now on `reconnectCard` returns early, and nothing is reported. May be called from any
    /// thread.
    void stopReconnecting();

    /// Stops the stream for good, whatever sounds. A sound server that hangs may block this for
    /// ever; may be called from any thread.
    void end();

    /// True if every source has enough decoded audio for the next pull. For callers that drive the
    /// stream themselves. For the control thread.
    [[nodiscard]] bool isReadAhead() const;

    // For the control thread.
    void add(std::shared_ptr<SoundSource> source);
    void remove(SoundSource* source);
    void add(std::shared_ptr<SoundTap> tap);
    void remove(SoundTap* tap);

    /// Makes the next `frames` frames, requested at `atNs` of the steady clock. Returns the moment
    /// before which the next call would be too early. Called by the sink, or by a test in its
    /// place.
    VELORIN_STREAM_THREAD std::int64_t pull(float* stereo, int frames, std::int64_t atNs);

    static constexpr int quietBlocksToIdle = 10 * streamRateHz / blockFrames;

private:
    /// A set of sources and taps; the stream uses it until it takes over the next one.
    struct Outlets {
        std::uint64_t number = 0;
        std::vector<SoundSource*> sources;
        std::vector<SoundTap*> taps;
    };
    struct Removed {
        std::shared_ptr<void> outlet;
        std::uint64_t number; ///< of the first outlets without it
    };

    [[nodiscard]] PullStream pulling();
    void report(OnceLogger& log, const std::string& text);
    [[nodiscard]] bool keepsPace(CardSink& card);
    void handOver();
    void collect();
    VELORIN_STREAM_THREAD void takeOver();
    VELORIN_STREAM_THREAD void makeBlock();
    VELORIN_STREAM_THREAD void countQuiet();

    platform::OwnerThread owner_; ///< the control thread

    // Of the control thread: what lives because the stream may still use it.
    std::vector<std::shared_ptr<SoundSource>> sources_;
    std::vector<std::shared_ptr<SoundTap>> taps_;
    std::vector<Removed> removed_;
    std::vector<std::unique_ptr<const Outlets>> handedOver_; ///< the last one is current
    std::uint64_t lastNumber_ = 0;

    std::atomic<const Outlets*> next_{nullptr}; ///< to be taken over; null if it has been
    std::atomic<std::uint64_t> takenOver_{0};   ///< the number of the set that the stream uses

    // Of the stream's thread.
    const Outlets* outlets_ = nullptr; ///< null until the first are taken over
    StreamClock clock_{streamRateHz, delayFrames};
    SoundBlock block_{};
    int left_ = 0;                ///< frames of `block_` not handed out yet
    std::int64_t madeFrames_ = 0; ///< the number of the first frame after `block_`

    std::atomic<int> quietBlocks_{0}; ///< written by the stream's thread, and by `start`

    std::mutex endMutex_; ///< never taken by the stream's thread
    std::condition_variable ended_;
    bool ending_ = false;

    std::mutex sinkMutex_; ///< never taken by the stream's thread
    std::unique_ptr<SoundSink> sink_;
    bool onClock_ = false; ///< the stream began without a card
    OnceLogger noCard_;
    OnceLogger lostCard_;
};

} // namespace velorin::host

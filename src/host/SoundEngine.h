// The sound engine: one stream that mixes everything that sounds, and its way to the sound card.
#pragma once

#include "host/Complaint.h"
#include "host/SoundSink.h"
#include "host/SoundSource.h"
#include "host/StreamClock.h"

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

class SdlSink;
class SoundTap;

/// Sources and taps come and go on one thread, the control thread; the stream is pulled on another.
/// The control thread hands over all that is to sound at once, so that the way between the two is
/// never full and nothing can be lost on it.
class SoundEngine {
public:
    /// To be made before other threads: it writes the environment. With `notices`, which lives
    /// until `stopLooking`, a missing card is also reported in the window.
    explicit SoundEngine(platform::Notices* notices = nullptr);
    ~SoundEngine(); ///< ends the stream
    SoundEngine(const SoundEngine&) = delete;
    SoundEngine& operator=(const SoundEngine&) = delete;

    /// Frames that the sound card takes at a time, 5.8 ms.
    static constexpr int bufferFrames = 256;
    /// From a message's stamp to its frame: one buffer, and a block for what the card's pulls vary.
    static constexpr int delayFrames = bufferFrames + blockFrames;

    /// Begins the stream if it does not run: to the sound card, or to a clock if there is none,
    /// which is said on standard error. May take some 10 ms; may be called from any thread.
    void start();

    /// Ends the stream if it is quiet, until `start`. May be called from any thread.
    void rest();

    /// Nothing has sounded for ten seconds, and nobody takes the stream down.
    [[nodiscard]] bool isQuiet() const {
        return quietBlocks_.load(std::memory_order_relaxed) >= quietBlocksToRest;
    }

    /// Called on the control thread when a source or a tap is added, which a resting stream would
    /// not serve.
    std::function<void()> onAdded;

    /// Whether the sound card has gone away under the stream, which goes on by the clock then.
    /// Never waits.
    [[nodiscard]] bool hasLostCard();

    /// Says that the card has gone away, if it has, and goes over to the one that is there now, if
    /// there is one and it keeps the pace. May take three seconds; may be called from any thread.
    void regainCard();

    /// From now on `regainCard` returns soon, and nothing is reported. May be called from any
    /// thread.
    void stopLooking();

    /// Ends the stream for good, whatever sounds. A sound server that hangs may hold this up
    /// without end; may be called from any thread.
    void end();

    /// Whether the stream can be pulled on without leaving a source behind that reads a file: for
    /// one who pulls it by hand. For the control thread.
    [[nodiscard]] bool isReadAhead() const;

    // For the control thread.
    void add(std::shared_ptr<SoundSource> source);
    void remove(SoundSource* source);
    void add(std::shared_ptr<SoundTap> tap);
    void remove(SoundTap* tap);

    /// Makes the next `frames` frames, asked for at `atNs` of the steady clock. Called by the sink,
    /// or by a test in its stead.
    void pull(float* stereo, int frames, std::int64_t atNs);

    static constexpr int quietBlocksToRest = 10 * streamRateHz / blockFrames;

private:
    /// All that the stream serves, from when it is taken over until the next is.
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
    [[nodiscard]] std::unique_ptr<SdlSink> openCard(std::string& reason);
    void report(Complaint& complaint, const std::string& text);
    [[nodiscard]] bool keepsPace(SdlSink& card);
    void handOver();
    void collect();
    void takeOver();
    void makeBlock();
    void countQuiet();

    // Of the control thread: what lives because the stream may still use it.
    std::vector<std::shared_ptr<SoundSource>> sources_;
    std::vector<std::shared_ptr<SoundTap>> taps_;
    std::vector<Removed> removed_;
    std::vector<std::unique_ptr<const Outlets>> handedOver_; ///< the last is what holds now
    std::uint64_t lastNumber_ = 0;

    std::atomic<const Outlets*> next_{nullptr}; ///< to be taken over; null if that was done
    std::atomic<std::uint64_t> takenOver_{0};   ///< the number of what the stream serves

    // Of the stream's thread.
    const Outlets* outlets_ = nullptr; ///< null until the first are taken over
    StreamClock clock_{streamRateHz, delayFrames};
    SoundBlock block_{};
    int left_ = 0;                ///< frames of `block_` not handed out yet
    std::int64_t madeFrames_ = 0; ///< the number of the frame behind `block_`

    std::atomic<int> quietBlocks_{0}; ///< written by the stream's thread, and before it begins

    std::mutex endMutex_; ///< never taken by the stream's thread
    std::condition_variable ended_;
    bool ending_ = false;

    std::mutex sinkMutex_; ///< never taken by the stream's thread
    std::unique_ptr<SoundSink> sink_;
    bool onClock_ = false; ///< the stream began without a card
    Complaint noCard_;
    Complaint lostCard_;
};

} // namespace velorin::host

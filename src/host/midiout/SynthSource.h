// A built-in synthesizer in the stream: timestamped messages in, sound out.
#pragma once

#include "host/engine/SoundSource.h"
#include "host/midi/ShortMessage.h"
#include "host/synth/Synth.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <atomic>
#include <cstdint>
#include <memory>

namespace velorin::host {

/// Queues messages from the beginning; they wait until the synthesizer is loaded. They are sent
/// from the control thread and take effect in that order.
///
/// The queue is large but bounded. Its last quarter is reserved for messages that end notes: it
/// takes no note-on. When it is full, all waiting messages are dropped and the synthesizer is
/// silenced. So a note may be missing, but none hangs.
class SynthSource final : public SoundSource {
public:
    // For the control thread.
    [[nodiscard]] bool send(std::int64_t stampNs,
                            const ShortMessage& message); ///< false: the queue is full
    void silence(std::int64_t stampNs); ///< ends what sounds; programs and controllers too

    /// Sets the synthesizer, once; null if it could not be loaded, which drops all messages. For
    /// the one thread that loads it.
    void provide(std::unique_ptr<Synth> synth);

    /// True if the synthesizer is loaded, or loading has failed. From any thread.
    [[nodiscard]] bool isLoadedOrFailed() const {
        return synth_.load(std::memory_order_acquire) || failed_.load(std::memory_order_acquire);
    }

    VELORIN_STREAM_THREAD void mix(SoundBlock& block, std::int64_t firstFrame,
                                   const StreamClock& clock) override;

private:
    struct Order {
        std::int64_t stampNs = 0;
        ShortMessage message; ///< empty: silence the synthesizer
    };

    [[nodiscard]] bool push(const Order& order);
    void giveUpWaiting();
    VELORIN_STREAM_THREAD void dropGivenUp(bool isLoaded);
    VELORIN_STREAM_THREAD void carryOut(const Order& order);
    VELORIN_STREAM_THREAD void beSilent();
    VELORIN_STREAM_THREAD void fade();
    VELORIN_STREAM_THREAD void sleepIfQuiet();
    VELORIN_STREAM_THREAD void beginSleep();

    /// Enough for many seconds of the densest score, in case the SoundFont takes that long to load.
    static constexpr std::size_t room = 1 << 15;
    static constexpr std::size_t roomToEndNotes = room / 4;
    boost::lockfree::spsc_queue<Order> orders_{room};
    std::uint64_t sent_ = 0;                ///< orders so far; of the control thread
    std::atomic<std::uint64_t> givenUp_{0}; ///< the first so many of them are dropped

    std::unique_ptr<Synth> owned_;
    std::atomic<Synth*> synth_{nullptr};
    std::atomic<bool> failed_{false};

    // Of the stream's thread.
    std::uint64_t taken_ = 0;       ///< orders so far
    std::uint64_t givenUpSeen_ = 0; ///< `givenUp_` at the last block
    SoundBlock own_{};
    int fadeBlocksLeft_ = 0;
    int quietBlocks_ = 0;
    bool asleep_ = true; ///< nothing sounds or fades, so nothing is computed
};

} // namespace velorin::host

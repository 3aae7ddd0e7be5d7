// A built-in synthesizer in the stream: stamped messages in, sound out.
#pragma once

#include "host/ShortMessage.h"
#include "host/SoundSource.h"
#include "host/Synth.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <atomic>
#include <cstdint>
#include <memory>

namespace velorin::host {

/// Takes messages from the moment it is made; they wait until the synthesizer has come. What is
/// sent from one thread, the control thread, is carried out in that order.
///
/// The room for what waits is large and has an end. Its last quarter takes no note that begins, so
/// that there is room for what ends notes; when that is full too, everything that waits is given up
/// and the synthesizer silenced. So a note may be missing, and none hangs.
class SynthSource final : public SoundSource {
public:
    // For the control thread.
    [[nodiscard]] bool send(std::int64_t stampNs, const ShortMessage& message); ///< false: no room
    void silence(std::int64_t stampNs); ///< ends what sounds; programs and controllers too

    /// Brings the synthesizer, once; null for one that cannot be had, which drops all messages.
    /// For the one thread that loads it.
    void provide(std::unique_ptr<Synth> synth);

    /// Whether the synthesizer has come, or is known not to come. From any thread.
    [[nodiscard]] bool isSettled() const {
        return synth_.load(std::memory_order_acquire) || failed_.load(std::memory_order_acquire);
    }

    void mix(SoundBlock& block, std::int64_t firstFrame, const StreamClock& clock) override;

private:
    struct Order {
        std::int64_t stampNs = 0;
        ShortMessage message; ///< an empty one asks for silence
    };

    [[nodiscard]] bool push(const Order& order);
    void giveUpWaiting();
    void dropGivenUp(bool isLoaded);
    void carryOut(const Order& order);
    void beSilent();
    void fade();
    void sleepIfQuiet();
    void beginSleep();

    /// Room for many seconds of the densest score, should the SoundFont take that long.
    static constexpr std::size_t room = 1 << 15;
    static constexpr std::size_t roomToEndNotes = room / 4;
    boost::lockfree::spsc_queue<Order> orders_{room};
    std::uint64_t sent_ = 0;                ///< orders so far; of the control thread
    std::atomic<std::uint64_t> givenUp_{0}; ///< the first so many of them are not to be carried out

    std::unique_ptr<Synth> owned_;
    std::atomic<Synth*> synth_{nullptr};
    std::atomic<bool> failed_{false};

    // Of the stream's thread.
    std::uint64_t taken_ = 0;       ///< orders so far
    std::uint64_t givenUpSeen_ = 0; ///< `givenUp_` when it was looked at last
    SoundBlock own_{};
    int fadeBlocksLeft_ = 0;
    int quietBlocks_ = 0;
    bool asleep_ = true; ///< nothing sounds and nothing fades: there is nothing to compute
};

} // namespace velorin::host

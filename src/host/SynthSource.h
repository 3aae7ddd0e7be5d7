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
class SynthSource final : public SoundSource {
public:
    // For the control thread.
    void send(std::int64_t stampNs, const ShortMessage& message);
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

    void carryOut(const Order& order);
    void fade();
    void sleepIfQuiet();
    void beginSleep();

    /// Room for a minute of the densest score, should the SoundFont take that long.
    boost::lockfree::spsc_queue<Order> orders_{1 << 15};

    std::unique_ptr<Synth> owned_;
    std::atomic<Synth*> synth_{nullptr};
    std::atomic<bool> failed_{false};

    // Of the stream's thread.
    SoundBlock own_{};
    int fadeBlocksLeft_ = 0;
    int quietBlocks_ = 0;
    bool asleep_ = true; ///< nothing sounds and nothing fades: there is nothing to compute
};

} // namespace velorin::host

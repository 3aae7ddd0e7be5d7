// When a synthesizer's messages take effect, how it is silenced, and when it may sleep.
#include "host/midiout/SynthSource.h"

#include "host/engine/StreamClock.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace velorin::host {

namespace {

// Sound that is cut off between two frames clicks. A fade of 3 ms prevents that and is too short to
// be heard as one.
constexpr int fadeBlocks = 2;

// Half a second below -100 dB: no voice and no reverberation is left.
constexpr float quietPeak = 1e-5F;
constexpr int quietBlocksToSleep = streamRateHz / 2 / blockFrames;

} // namespace

bool SynthSource::send(std::int64_t stampNs, const ShortMessage& message) {
    if (message.count == 0)
        return true;
    const bool begins = message.kind() == 0x90 && message.byte[2] > 0;
    if (begins && orders_.write_available() <= roomToEndNotes)
        return false;
    if (push({stampNs, message}))
        return true;
    giveUpWaiting();
    return false;
}

void SynthSource::silence(std::int64_t stampNs) {
    if (!push({stampNs, {}}))
        giveUpWaiting();
}

bool SynthSource::push(const Order& order) {
    assert(!StreamThreadScope::isActive());
    if (!orders_.push(order))
        return false;
    ++sent_;
    return true;
}

void SynthSource::giveUpWaiting() {
    givenUp_.store(sent_, std::memory_order_release);
}

void SynthSource::provide(std::unique_ptr<Synth> synth) {
    owned_ = std::move(synth);
    synth_.store(owned_.get(), std::memory_order_release);
    failed_.store(owned_ == nullptr, std::memory_order_release);
}

void SynthSource::mix(SoundBlock& block, std::int64_t firstFrame, const StreamClock& clock) {
    assert(StreamThreadScope::isActive());
    Synth* synth = synth_.load(std::memory_order_acquire);
    dropGivenUp(synth != nullptr);
    if (!synth) {
        if (failed_.load(std::memory_order_acquire))
            taken_ += orders_.consume_all([](const Order&) {});
        return;
    }
    while (fadeBlocksLeft_ == 0 && orders_.read_available() > 0 &&
           clock.dueFrame(orders_.front().stampNs) <= firstFrame) {
        carryOut(orders_.front());
        orders_.pop();
        ++taken_;
    }
    if (asleep_)
        return;
    synth->render(own_.data(), blockFrames);
    if (fadeBlocksLeft_ > 0)
        fade();
    else
        sleepIfQuiet();
    for (std::size_t i = 0; i < block.size(); ++i) {
        block[i] += own_[i];
    }
}

void SynthSource::dropGivenUp(bool isLoaded) {
    const std::uint64_t givenUp = givenUp_.load(std::memory_order_acquire);
    if (givenUp == givenUpSeen_)
        return;
    givenUpSeen_ = givenUp;
    for (; taken_ < givenUp; ++taken_)
        orders_.pop();
    if (isLoaded)
        beSilent();
}

void SynthSource::carryOut(const Order& order) {
    if (order.message.count == 0)
        return beSilent();
    owned_->send(order.message);
    quietBlocks_ = 0;
    asleep_ = asleep_ && order.message.kind() != 0x90;
}

void SynthSource::beSilent() {
    if (asleep_)
        owned_->reset();
    else if (fadeBlocksLeft_ == 0)
        fadeBlocksLeft_ = fadeBlocks;
}

void SynthSource::fade() {
    constexpr float frames = fadeBlocks * blockFrames;
    const float before = static_cast<float>(fadeBlocksLeft_ * blockFrames);
    for (std::size_t i = 0; i < own_.size(); ++i) {
        const std::size_t frame = i / 2;
        own_[i] *= (before - static_cast<float>(frame)) / frames;
    }
    if (--fadeBlocksLeft_ == 0)
        beginSleep();
}

void SynthSource::beginSleep() {
    owned_->reset();
    asleep_ = true;
    quietBlocks_ = 0;
}

void SynthSource::sleepIfQuiet() {
    const auto loud = [](float sample) { return std::abs(sample) > quietPeak; };
    const bool quiet = owned_->activeVoices() == 0 && std::none_of(own_.begin(), own_.end(), loud);
    quietBlocks_ = quiet ? quietBlocks_ + 1 : 0;
    asleep_ = quietBlocks_ >= quietBlocksToSleep;
}

} // namespace velorin::host

// The mixing of the stream, and the exchange of sources between the two threads.
#include "host/SoundEngine.h"

#include "host/ClockSink.h"
#include "host/SdlSink.h"
#include "host/SoundTap.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace velorin::host {

namespace {

template <typename Array, typename Item>
void place(Array& array, Item* item) {
    const auto free = std::find(array.begin(), array.end(), nullptr);
    if (free != array.end())
        *free = item;
}

template <typename Array, typename Item>
void drop(Array& array, Item* item) {
    std::replace(array.begin(), array.end(), item, static_cast<Item*>(nullptr));
}

template <typename Owners, typename Item>
void release(Owners& owners, Item* item) {
    owners.erase(std::remove_if(owners.begin(), owners.end(),
                                [&](const auto& owner) { return owner.get() == item; }),
                 owners.end());
}

// A sound server that has just begun may take a first buffer and then nothing for two seconds.
bool keepsPace(SdlSink& card) {
    using namespace std::chrono_literals;
    constexpr int looks = 30;
    constexpr int enough =
        9 * streamRateHz / SoundEngine::bufferFrames / 100; // of a tenth of a second
    card.beginSilent();
    int before = card.asked();
    for (int look = 0; look < looks && card.hasCard(); ++look) {
        std::this_thread::sleep_for(100ms);
        const int asked = card.asked();
        if (look > 0 && asked - before >= enough)
            return true;
        before = asked;
    }
    return false;
}

} // namespace

SoundEngine::SoundEngine() {
    SdlSink::askServersForRoom();
}

SoundEngine::~SoundEngine() {
    sink_.reset();
}

PullStream SoundEngine::pulling() {
    return [this](float* stereo, int frames, std::int64_t atNs) { pull(stereo, frames, atNs); };
}

std::unique_ptr<SdlSink> SoundEngine::openCard(std::string& reason) {
    return SdlSink::open(pulling(), bufferFrames, reason);
}

void SoundEngine::start() {
    const std::lock_guard lock(sinkMutex_);
    if (sink_)
        return;
    quietBlocks_.store(0, std::memory_order_relaxed);
    std::string reason;
    if (auto card = openCard(reason)) {
        card->begin();
        sink_ = std::move(card);
        onClock_ = false;
        return;
    }
    noCard_.say("no sound card (" + reason + "); what plays is not heard");
    sink_ = std::make_unique<ClockSink>(pulling(), bufferFrames);
    onClock_ = true;
}

void SoundEngine::rest() {
    const std::lock_guard lock(sinkMutex_);
    if (isQuiet())
        sink_.reset();
}

bool SoundEngine::hasLostCard() {
    const std::unique_lock lock(sinkMutex_, std::try_to_lock); // somebody is at it already
    return lock && sink_ && !onClock_ && !sink_->hasCard();
}

// The old sink pulls until the new one keeps the pace, and never both of them do.
void SoundEngine::regainCard() {
    const std::lock_guard lock(sinkMutex_);
    if (!sink_ || sink_->hasCard())
        return;
    if (!onClock_)
        lostCard_.say("the sound card has gone away; what plays is not heard");
    std::string ignored;
    auto card = openCard(ignored);
    if (!card || !keepsPace(*card))
        return;
    sink_.reset();
    card->begin();
    sink_ = std::move(card);
    onClock_ = false;
}

bool SoundEngine::isReadAhead() const {
    return std::all_of(sources_.begin(), sources_.end(),
                       [](const auto& source) { return source->isReadAhead(); });
}

void SoundEngine::give(const Order& order) {
    collectReleased();
    orders_.push(order);
}

void SoundEngine::collectReleased() {
    Order order;
    while (released_.pop(order)) {
        release(sources_, order.source);
        release(taps_, order.tap);
    }
}

void SoundEngine::add(std::shared_ptr<SoundSource> source) {
    give({source.get(), nullptr, true});
    sources_.push_back(std::move(source));
    if (onAdded)
        onAdded();
}

void SoundEngine::remove(SoundSource* source) {
    give({source, nullptr, false});
}

void SoundEngine::add(std::shared_ptr<SoundTap> tap) {
    give({nullptr, tap.get(), true});
    taps_.push_back(std::move(tap));
    if (onAdded)
        onAdded();
}

void SoundEngine::remove(SoundTap* tap) {
    give({nullptr, tap, false});
}

void SoundEngine::takeOrders() {
    Order order;
    while (orders_.pop(order)) {
        if (order.isAdding) {
            if (order.source)
                place(playing_, order.source);
            if (order.tap)
                place(tapped_, order.tap);
            continue;
        }
        if (order.source)
            drop(playing_, order.source);
        if (order.tap)
            drop(tapped_, order.tap);
        released_.push(order);
    }
}

void SoundEngine::makeBlock() {
    block_.fill(0.0F);
    for (SoundSource* source : playing_) {
        if (source)
            source->mix(block_, madeFrames_, clock_);
    }
    countQuiet();
    const TappedBlock tapped{madeFrames_, block_};
    for (SoundTap* tap : tapped_) {
        if (tap)
            tap->write(tapped);
    }
    madeFrames_ += blockFrames;
    left_ = blockFrames;
}

void SoundEngine::countQuiet() {
    const auto isThere = [](const auto* outlet) { return outlet != nullptr; };
    const bool quiet = std::none_of(tapped_.begin(), tapped_.end(), isThere) &&
                       std::all_of(block_.begin(), block_.end(), [](float s) { return s == 0.0F; });
    const int before = quietBlocks_.load(std::memory_order_relaxed);
    quietBlocks_.store(quiet ? std::min(before + 1, quietBlocksToRest) : 0,
                       std::memory_order_relaxed);
}

void SoundEngine::pull(float* stereo, int frames, std::int64_t atNs) {
    takeOrders();
    clock_.observe(atNs, madeFrames_ - left_);
    while (frames > 0) {
        if (left_ == 0)
            makeBlock();
        const int taken = std::min(frames, left_);
        const float* from = block_.data() + 2 * (blockFrames - left_);
        std::copy(from, from + 2 * taken, stereo);
        stereo += 2 * taken;
        frames -= taken;
        left_ -= taken;
    }
}

} // namespace velorin::host

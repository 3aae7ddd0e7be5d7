// Mixes the stream, and passes sources from one thread to the other.
#include "host/engine/SoundEngine.h"

#include "host/engine/CardSink.h"
#include "host/engine/ClockSink.h"
#include "host/engine/SoundTap.h"

#include <algorithm>
#include <cassert>
#include <chrono>

namespace velorin::host {

namespace {

/// Removes the entry with this address and returns it; null if there is none.
template <typename Outlet>
std::shared_ptr<Outlet> takeOut(std::vector<std::shared_ptr<Outlet>>& outlets,
                                const Outlet* address) {
    const auto found = std::find_if(outlets.begin(), outlets.end(),
                                    [&](const auto& each) { return each.get() == address; });
    if (found == outlets.end())
        return nullptr;
    std::shared_ptr<Outlet> taken = std::move(*found);
    outlets.erase(found);
    return taken;
}

template <typename Outlet>
std::vector<Outlet*> addresses(const std::vector<std::shared_ptr<Outlet>>& outlets) {
    std::vector<Outlet*> all;
    all.reserve(outlets.size());
    for (const auto& outlet : outlets)
        all.push_back(outlet.get());
    return all;
}

} // namespace

// A sound server that has just started may take a first buffer and then nothing for two seconds.
bool SoundEngine::keepsPace(CardSink& card) {
    using namespace std::chrono_literals;
    constexpr int looks = 30;
    constexpr int enough =
        9 * streamRateHz / SoundEngine::bufferFrames / 100; // of a tenth of a second
    card.startSilent();
    int before = card.requests();
    for (int look = 0; look < looks && card.hasCard(); ++look) {
        std::unique_lock lock(endMutex_);
        if (ended_.wait_for(lock, 100ms, [this] { return ending_; }))
            return false;
        lock.unlock();
        const int asked = card.requests();
        if (look > 0 && asked - before >= enough)
            return true;
        before = asked;
    }
    return false;
}

SoundEngine::SoundEngine(platform::Notices* notices) : noCard_(notices), lostCard_(notices) {
    CardSink::requestServerLatency();
}

SoundEngine::~SoundEngine() {
    sink_.reset();
}

void SoundEngine::stopReconnecting() {
    {
        const std::lock_guard lock(endMutex_);
        ending_ = true;
    }
    ended_.notify_all();
}

void SoundEngine::end() {
    const std::lock_guard lock(sinkMutex_);
    sink_.reset();
}

// A call to a hanging sound server may return after the window has gone.
void SoundEngine::report(OnceLogger& log, const std::string& text) {
    const std::lock_guard lock(endMutex_);
    if (!ending_)
        log.log(text);
}

PullStream SoundEngine::pulling() {
    return
        [this](float* stereo, int frames, std::int64_t atNs) { return pull(stereo, frames, atNs); };
}

void SoundEngine::start() {
    const std::lock_guard lock(sinkMutex_);
    if (sink_)
        return;
    quietBlocks_.store(0, std::memory_order_relaxed);
    auto card = CardSink::open(pulling(), bufferFrames);
    if (card) {
        (*card)->start();
        sink_ = std::move(*card);
        onClock_ = false;
        return;
    }
    report(noCard_,
           "There is no sound card (" + card.reason() +
               "), so nothing is heard. Connect one or start the sound server, and start Velorin "
               "again.");
    sink_ = std::make_unique<ClockSink>(pulling(), bufferFrames);
    onClock_ = true;
}

void SoundEngine::stopIfQuiet() {
    const std::lock_guard lock(sinkMutex_);
    if (isQuiet())
        sink_.reset();
}

bool SoundEngine::hasLostCard() {
    // Another thread may be opening or closing the card.
    const std::unique_lock lock(sinkMutex_, std::try_to_lock);
    return lock && sink_ && !onClock_ && !sink_->hasCard();
}

// The old sink pulls until the new one keeps the pace. Both never pull at once.
void SoundEngine::reconnectCard() {
    const std::lock_guard lock(sinkMutex_);
    if (!sink_ || sink_->hasCard())
        return;
    if (!onClock_)
        report(lostCard_,
               "The sound card has gone away, so nothing is heard. Connect it again or start "
               "the sound server; the sound then comes back by itself.");
    auto opened = CardSink::open(pulling(), bufferFrames);
    if (!opened || !keepsPace(**opened))
        return;
    sink_.reset();
    (*opened)->start();
    sink_ = std::move(*opened);
    onClock_ = false;
}

bool SoundEngine::isReadAhead() const {
    assert(owner_.isCaller());
    return std::all_of(sources_.begin(), sources_.end(),
                       [](const auto& source) { return source->isReadAhead(); });
}

void SoundEngine::handOver() {
    assert(owner_.isCaller());
    handedOver_.push_back(std::make_unique<const Outlets>(
        Outlets{++lastNumber_, addresses(sources_), addresses(taps_)}));
    const Outlets* const untaken =
        next_.exchange(handedOver_.back().get(), std::memory_order_acq_rel);
    std::erase_if(handedOver_, [&](const auto& each) { return each.get() == untaken; });
    collect();
}

// The stream still uses the set that it has taken over, but none before that.
void SoundEngine::collect() {
    const std::uint64_t taken = takenOver_.load(std::memory_order_acquire);
    std::erase_if(handedOver_, [taken](const auto& each) { return each->number < taken; });
    std::erase_if(removed_, [taken](const Removed& each) { return each.number <= taken; });
}

void SoundEngine::add(std::shared_ptr<SoundSource> source) {
    sources_.push_back(std::move(source));
    handOver();
    if (onAdded)
        onAdded();
}

void SoundEngine::remove(SoundSource* source) {
    removed_.push_back({takeOut(sources_, source), lastNumber_ + 1});
    handOver();
}

void SoundEngine::add(std::shared_ptr<SoundTap> tap) {
    taps_.push_back(std::move(tap));
    handOver();
    if (onAdded)
        onAdded();
}

void SoundEngine::remove(SoundTap* tap) {
    removed_.push_back({takeOut(taps_, tap), lastNumber_ + 1});
    handOver();
}

void SoundEngine::takeOver() {
    const Outlets* const next = next_.exchange(nullptr, std::memory_order_acq_rel);
    if (next == nullptr)
        return;
    outlets_ = next;
    takenOver_.store(next->number, std::memory_order_release);
}

void SoundEngine::makeBlock() {
    block_.fill(0.0F);
    if (outlets_ != nullptr) {
        for (SoundSource* source : outlets_->sources)
            source->mix(block_, madeFrames_, clock_);
    }
    countQuiet();
    if (outlets_ != nullptr) {
        const TappedBlock tapped{madeFrames_, block_};
        for (SoundTap* tap : outlets_->taps)
            tap->write(tapped);
    }
    madeFrames_ += blockFrames;
    left_ = blockFrames;
}

void SoundEngine::countQuiet() {
    const bool isTapped = outlets_ != nullptr && !outlets_->taps.empty();
    const bool quiet =
        !isTapped && std::all_of(block_.begin(), block_.end(), [](float s) { return s == 0.0F; });
    const int before = quietBlocks_.load(std::memory_order_relaxed);
    quietBlocks_.store(quiet ? std::min(before + 1, quietBlocksToIdle) : 0,
                       std::memory_order_relaxed);
}

std::int64_t SoundEngine::pull(float* stereo, int frames, std::int64_t atNs) {
    const StreamThreadScope scope;
    takeOver();
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
    return clock_.earliestNs(madeFrames_ - left_);
}

} // namespace velorin::host

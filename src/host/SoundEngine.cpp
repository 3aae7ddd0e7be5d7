// The mixing of the stream, and the exchange of sources between the two threads.
#include "host/SoundEngine.h"

#include "host/ClockSink.h"
#include "host/SdlSink.h"
#include "host/SoundTap.h"

#include <algorithm>
#include <chrono>

namespace velorin::host {

namespace {

/// Takes out what has the address; null if there is none.
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

// A sound server that has just begun may take a first buffer and then nothing for two seconds.
bool SoundEngine::keepsPace(SdlSink& card) {
    using namespace std::chrono_literals;
    constexpr int looks = 30;
    constexpr int enough =
        9 * streamRateHz / SoundEngine::bufferFrames / 100; // of a tenth of a second
    card.beginSilent();
    int before = card.asked();
    for (int look = 0; look < looks && card.hasCard(); ++look) {
        std::unique_lock lock(endMutex_);
        if (ended_.wait_for(lock, 100ms, [this] { return ending_; }))
            return false;
        lock.unlock();
        const int asked = card.asked();
        if (look > 0 && asked - before >= enough)
            return true;
        before = asked;
    }
    return false;
}

SoundEngine::SoundEngine(platform::Notices* notices) : noCard_(notices), lostCard_(notices) {
    SdlSink::askServersForRoom();
}

SoundEngine::~SoundEngine() {
    sink_.reset();
}

void SoundEngine::stopLooking() {
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

// A call of a sound server that hangs may return when the window has gone.
void SoundEngine::report(Complaint& complaint, const std::string& text) {
    const std::lock_guard lock(endMutex_);
    if (!ending_)
        complaint.say(text);
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
    report(noCard_,
           "There is no sound card (" + reason +
               "), so nothing is heard. Connect one or start the sound server, and start Velorin "
               "again.");
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
        report(lostCard_,
               "The sound card has gone away, so nothing is heard. Connect it again or start "
               "the sound server; the sound then comes back by itself.");
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

void SoundEngine::handOver() {
    handedOver_.push_back(std::make_unique<const Outlets>(
        Outlets{++lastNumber_, addresses(sources_), addresses(taps_)}));
    const Outlets* const untaken =
        next_.exchange(handedOver_.back().get(), std::memory_order_acq_rel);
    std::erase_if(handedOver_, [&](const auto& each) { return each.get() == untaken; });
    collect();
}

// What the stream has taken over it still uses; what came before that it does not.
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
    quietBlocks_.store(quiet ? std::min(before + 1, quietBlocksToRest) : 0,
                       std::memory_order_relaxed);
}

void SoundEngine::pull(float* stereo, int frames, std::int64_t atNs) {
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
}

} // namespace velorin::host

// The line under the pulls: a minimum over the last seconds, followed slowly.
#include "host/engine/StreamClock.h"

#include <algorithm>
#include <cmath>

namespace velorin::host {

namespace {

// Sound cards differ from the clock by up to some 100 parts in a million, a server without a card
// by 800. Following at 1000 moves two onsets 120 ms apart by 0.12 ms at most.
constexpr double followRate = 0.001;

// Pulls this much before the line are no drift of a card. While the stream begins, the card fills
// its buffers: by the old line, messages would be due in frames that are already made.
constexpr double earlyNs = 5e6;
constexpr std::int64_t beginningNs = 1'000'000'000;

// Later, no card needs such a pull, except once when a server enlarges its buffer. It is held back
// until it is no earlier than that, and the line gives way slowly: 20 ms take two seconds.
constexpr double heldBackNs = 4.5e6; ///< a pull this early has been held back
constexpr double giveWayRate = 0.01;

// After an underrun the stream is behind the line. Messages then wait that much longer, and the
// line catches up slowly: a jump would move two onsets too close together, in a recording too. A
// longer delay than this would be noticed by a player.
constexpr double lateJumpNs = 40e6;

// A server with large buffers takes what a stall has delayed at once when it goes on, and is on the
// line again. So a stall is one only if the pulls stay late, or if no server buffers that much.
constexpr double stallNs = 100e6;
constexpr std::int64_t staysLateNs = 50'000'000;
constexpr double longestBufferNs = 1e9;

} // namespace

void StreamClock::restartAt(double offsetNs, std::int64_t nowNs) {
    lowestOf_.fill(offsetNs);
    offsetNs_ = offsetNs;
    slot_ = nowNs / slotNs;
    beganNs_ = nowNs;
    lateSinceNs_ = 0;
    running_ = true;
}

bool StreamClock::isBeginning() const {
    return lastNs_ - beganNs_ < beginningNs;
}

bool StreamClock::hasStalled(double lateNs, std::int64_t nowNs) {
    if (lateNs <= stallNs) {
        lateSinceNs_ = 0;
        return false;
    }
    if (lateSinceNs_ == 0)
        lateSinceNs_ = nowNs;
    return lateNs > longestBufferNs || nowNs - lateSinceNs_ > staysLateNs;
}

double StreamClock::lowest() const {
    return *std::min_element(lowestOf_.begin(), lowestOf_.end());
}

void StreamClock::observe(std::int64_t nowNs, std::int64_t frame) {
    const double offset = static_cast<double>(nowNs) - static_cast<double>(frame) * 1e9 / rateHz_;
    const double elapsed = static_cast<double>(nowNs - lastNs_);
    lastNs_ = nowNs;
    if (!running_ || hasStalled(offset - offsetNs_, nowNs)) {
        restartAt(offset, nowNs);
        return;
    }
    for (const std::int64_t slot = nowNs / slotNs; slot_ < slot; ++slot_) {
        lowestOf_[static_cast<std::size_t>(slot_ + 1) % slots] = offset;
    }
    double& lowestNow = lowestOf_[static_cast<std::size_t>(slot_) % slots];
    lowestNow = std::min(lowestNow, offset);
    follow(elapsed);
}

void StreamClock::follow(double elapsedNs) {
    const double error = lowest() - offsetNs_;
    if (error > lateJumpNs || (error < -earlyNs && isBeginning())) {
        offsetNs_ += error;
        return;
    }
    const double earlier = elapsedNs * (error < -heldBackNs ? giveWayRate : followRate);
    offsetNs_ += std::clamp(error, -earlier, elapsedNs * followRate);
}

std::int64_t StreamClock::earliestNs(std::int64_t frame) const {
    if (!running_ || isBeginning())
        return lastNs_;
    return std::llround(offsetNs_ + static_cast<double>(frame) * 1e9 / rateHz_ - earlyNs);
}

std::int64_t StreamClock::dueFrame(std::int64_t stampNs) const {
    const double frames = (static_cast<double>(stampNs) - offsetNs_) * rateHz_ / 1e9;
    return static_cast<std::int64_t>(std::llround(frames)) + delayFrames_;
}

} // namespace velorin::host

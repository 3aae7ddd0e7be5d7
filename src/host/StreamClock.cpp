// The line under the pulls: a minimum over the last seconds, followed slowly.
#include "host/StreamClock.h"

#include <algorithm>
#include <cmath>

namespace velorin::host {

namespace {

// Sound cards differ from the clock by up to some 100 parts in a million, a server that plays to
// none by 800. Following at 1000 moves two onsets 120 ms apart by 0.12 ms at most.
constexpr double followRate = 0.001;

// Pulls that come this much before the line are no card's drift: the server has taken several
// buffers at once, and what is due by the old line would fall into frames that are made already.
constexpr double earlyJumpNs = 5e6;

// Behind the line the stream is after each buffer that the server did not get in time. Messages
// wait that much longer then, and the line makes it up slowly: a jump would put two onsets too near
// to each other, in a recording too. A wait of more than this would be felt by who plays.
constexpr double lateJumpNs = 40e6;
constexpr double stallNs = 100e6;

} // namespace

void StreamClock::restartAt(double offsetNs, std::int64_t slot) {
    lowestOf_.fill(offsetNs);
    offsetNs_ = offsetNs;
    slot_ = slot;
    running_ = true;
}

double StreamClock::lowest() const {
    return *std::min_element(lowestOf_.begin(), lowestOf_.end());
}

void StreamClock::observe(std::int64_t nowNs, std::int64_t frame) {
    const double offset = static_cast<double>(nowNs) - static_cast<double>(frame) * 1e9 / rateHz_;
    const std::int64_t slot = nowNs / slotNs;
    const double elapsed = static_cast<double>(nowNs - lastNs_);
    lastNs_ = nowNs;
    if (!running_ || offset - offsetNs_ > stallNs) {
        restartAt(offset, slot);
        return;
    }
    for (; slot_ < slot; ++slot_) {
        lowestOf_[static_cast<std::size_t>(slot_ + 1) % slots] = offset;
    }
    double& lowestNow = lowestOf_[static_cast<std::size_t>(slot_) % slots];
    lowestNow = std::min(lowestNow, offset);

    const double error = lowest() - offsetNs_;
    const double step = elapsed * followRate;
    const bool jumps = error < -earlyJumpNs || error > lateJumpNs;
    offsetNs_ += jumps ? error : std::clamp(error, -step, step);
}

std::int64_t StreamClock::dueFrame(std::int64_t stampNs) const {
    const double frames = (static_cast<double>(stampNs) - offsetNs_) * rateHz_ / 1e9;
    return static_cast<std::int64_t>(std::llround(frames)) + delayFrames_;
}

} // namespace velorin::host

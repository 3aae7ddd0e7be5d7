// Paces the pulls, and goes on without the card.
#include "host/engine/CardSink.h"

#include "host/card/CardModule.h"
#include "host/engine/SoundSource.h"

#include <algorithm>
#include <cstdlib>

#ifdef __linux__
#include <pthread.h>
#endif

namespace velorin::host {

namespace {

/// SDL asks a PulseAudio server to buffer one buffer of ours, and fills it when it has run empty:
/// if that is a little late, there is an underrun. A server that buffers 20 ms has some 14 left by
/// then.
constexpr char serverLatencyMs[] = "20";

/// An underrun is heard as a crack. If the system allows it, the stream's thread gets real-time
/// priority; it sleeps from one buffer to the next.
void raiseThreadPriority() {
#ifdef __linux__
    sched_param parameters{};
    parameters.sched_priority = 5;
    pthread_setschedparam(pthread_self(), SCHED_RR, &parameters);
#endif
}

} // namespace

void CardSink::fill(float* stereo, int frames) {
    const StreamThreadScope scope;
    if (first_)
        raiseThreadPriority();
    first_ = false;
    requests_.fetch_add(1, std::memory_order_relaxed);
    if (!pulls_.load(std::memory_order_acquire)) {
        std::fill_n(stereo, 2 * frames, 0.0F);
        return;
    }
    const std::int64_t atNs = waitForPull(frames);
    earliestNs_ = pull_(stereo, frames, atNs);
}

// SDL counts what a PulseAudio server asks for. If requests come in while its thread stands still,
// it adds the whole need of the server at each of them: a stall of 160 ms makes it ask for 700 ms
// at once.
std::int64_t CardSink::waitForPull(int frames) {
    // Without a card SDL keeps calling, paced by waits of whole milliseconds: a sixth too fast.
    if (!hasCard())
        return pacer_.wait(frames);
    return FramePacer::waitUntil(earliestNs_);
}

platform::Result<std::unique_ptr<CardSink>> CardSink::open(PullStream pull, int bufferFrames) {
    std::unique_ptr<CardSink> sink(new CardSink(std::move(pull)));
    auto card =
        openCard({CardDirection::output, streamRateHz, bufferFrames,
                  [to = sink.get()](float* stereo, int frames) { to->fill(stereo, frames); }});
    if (!card)
        return card.failure();
    sink->card_ = std::move(*card);
    return sink;
}

void CardSink::requestServerLatency() {
    setenv("PULSE_LATENCY_MSEC", serverLatencyMs, 0);
}

void CardSink::startSilent() {
    card_->run();
}

void CardSink::start() {
    pulls_.store(true, std::memory_order_release);
    card_->run();
}

bool CardSink::hasCard() const {
    return !card_->isLost();
}

} // namespace velorin::host

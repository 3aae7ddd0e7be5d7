// The adapter to SDL, of which only the audio part is used.
#include "host/engine/SdlSink.h"

#include "host/engine/SoundSource.h"
#include "host/process/SystemClock.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

#ifdef __linux__
#include <pthread.h>
#endif

namespace velorin::host {

namespace {

/// SDL asks a PulseAudio server to buffer one buffer of ours, and fills it when it has run empty:
/// if that is a little late, there is an underrun. A server that buffers 20 ms has some 14 left by
/// then.
constexpr char serverLatencyMs[] = "20";

/// More than the time of a buffer is never needed.
constexpr std::int64_t longestWaitNs = 20'000'000;

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

void SdlSink::fill(void* sink, unsigned char* bytes, int count) {
    const StreamThreadScope scope;
    auto& self = *static_cast<SdlSink*>(sink);
    if (self.first_)
        raiseThreadPriority();
    self.first_ = false;
    self.requests_.fetch_add(1, std::memory_order_relaxed);
    if (!self.pulls_.load(std::memory_order_acquire)) {
        std::memset(bytes, 0, static_cast<std::size_t>(count));
        return;
    }
    const int frames = count / static_cast<int>(2 * sizeof(float));
    const std::int64_t atNs = self.waitForPull(frames);
    self.earliestNs_ = self.pull_(reinterpret_cast<float*>(bytes), frames, atNs);
}

// SDL counts what a PulseAudio server asks for. If requests come in while its thread stands still,
// it adds the whole need of the server at each of them: a stall of 160 ms makes it ask for 700 ms
// at once.
std::int64_t SdlSink::waitForPull(int frames) {
    // Without a card SDL keeps calling, paced by waits of whole milliseconds: a sixth too fast.
    if (!hasCard())
        return pacer_.wait(frames);
    const std::int64_t nowNs = steadyNs();
    if (earliestNs_ <= nowNs)
        return nowNs;
    const StreamThreadWait waiting;
    std::this_thread::sleep_for(
        std::chrono::nanoseconds(std::min(earliestNs_ - nowNs, longestWaitNs)));
    return steadyNs();
}

platform::Result<std::unique_ptr<SdlSink>> SdlSink::open(PullStream pull, int bufferFrames) {
    // SDL must not handle the signals that end the program.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorin");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    std::unique_ptr<SdlSink> sink(new SdlSink(std::move(pull)));
    SDL_AudioSpec wanted{};
    wanted.freq = streamRateHz;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(bufferFrames);
    wanted.callback = fill;
    wanted.userdata = sink.get();
    sink->device_ = sink->audio_.open(SdlAudio::Direction::output, wanted);
    if (sink->device_ == 0)
        return platform::Failure{SDL_GetError()};
    return sink;
}

void SdlSink::requestServerLatency() {
    SDL_setenv("PULSE_LATENCY_MSEC", serverLatencyMs, 0);
}

void SdlSink::startSilent() {
    SDL_PauseAudioDevice(device_, 0);
}

void SdlSink::start() {
    pulls_.store(true, std::memory_order_release);
    SDL_PauseAudioDevice(device_, 0);
}

SdlSink::~SdlSink() {
    if (device_ != 0)
        SDL_CloseAudioDevice(device_);
}

bool SdlSink::hasCard() const {
    return SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED;
}

} // namespace velorin::host

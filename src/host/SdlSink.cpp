// The border to SDL, of which the audio part alone is used.
#include "host/SdlSink.h"

#include "host/SoundSource.h"
#include "host/SystemClock.h"

#include <SDL.h>

#include <cstring>

#ifdef __linux__
#include <pthread.h>
#endif

namespace velorin::host {

namespace {

/// SDL asks a PulseAudio server to hold one buffer and fills it when all of it has been played: a
/// little too late, and there is a crack. A server that holds 20 ms has some 14 left by then.
constexpr char serverRoomMs[] = "20";

/// A buffer that comes late is heard as a crack. Where the system lets it, the stream's thread runs
/// before all that can wait; it sleeps from one buffer to the next.
void runBeforeOthers() {
#ifdef __linux__
    sched_param parameters{};
    parameters.sched_priority = 5;
    pthread_setschedparam(pthread_self(), SCHED_RR, &parameters);
#endif
}

} // namespace

void SdlSink::fill(void* sink, unsigned char* bytes, int count) {
    auto& self = *static_cast<SdlSink*>(sink);
    if (self.first_)
        runBeforeOthers();
    self.first_ = false;
    self.asked_.fetch_add(1, std::memory_order_relaxed);
    if (!self.pulls_.load(std::memory_order_acquire)) {
        std::memset(bytes, 0, static_cast<std::size_t>(count));
        return;
    }
    const int frames = count / static_cast<int>(2 * sizeof(float));
    // SDL goes on to ask without a card, by waits in whole milliseconds: a sixth too fast.
    const std::int64_t atNs = self.hasCard() ? steadyNs() : self.pace_.wait(frames);
    self.pull_(reinterpret_cast<float*>(bytes), frames, atNs);
}

std::unique_ptr<SdlSink> SdlSink::open(PullStream pull, int bufferFrames, std::string& reason) {
    // Interrupt and termination end the program as they always do.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorin");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    std::unique_ptr<SdlSink> sink(new SdlSink(std::move(pull)));
    SDL_AudioSpec wanted{};
    wanted.freq = streamRateHz;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(bufferFrames);
    wanted.callback = fill;
    wanted.userdata = sink.get();
    SDL_AudioSpec obtained{};
    sink->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, 0);
    if (sink->device_ == 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    return sink;
}

void SdlSink::askServersForRoom() {
    SDL_setenv("PULSE_LATENCY_MSEC", serverRoomMs, 0);
}

void SdlSink::beginSilent() {
    SDL_PauseAudioDevice(device_, 0);
}

void SdlSink::begin() {
    pulls_.store(true, std::memory_order_release);
    SDL_PauseAudioDevice(device_, 0);
}

SdlSink::~SdlSink() {
    if (device_ != 0)
        SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SdlSink::hasCard() const {
    return SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED;
}

} // namespace velorin::host

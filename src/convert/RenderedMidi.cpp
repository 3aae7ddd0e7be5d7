// Renders between messages, and the tail after the last one.
#include "convert/RenderedMidi.h"

#include "convert/OfflinePlatform.h"

#include <algorithm>

namespace velorin::convert {

namespace {

constexpr platform::MidiOutHandle onlyHandle = 1;

constexpr int longestTailSeconds = 10;

} // namespace

std::string RenderedMidi::midiOutGetDevCapsA(int index) {
    return index == 0 ? "File" : "";
}

std::uint32_t RenderedMidi::midiOutOpen(platform::MidiOutHandle& handle, int index) {
    if (open_ || index > 0 || index < mapper)
        return platform::midiBadDevice;
    open_ = true;
    handle = onlyHandle;
    return platform::midiSuccess;
}

std::uint32_t RenderedMidi::midiOutClose(platform::MidiOutHandle handle) {
    if (!open_ || handle != onlyHandle)
        return platform::midiBadHandle;
    catchUp();
    renderer_.reset();
    open_ = false;
    return platform::midiSuccess;
}

std::uint32_t RenderedMidi::midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) {
    if (!open_ || handle != onlyHandle)
        return platform::midiBadHandle;
    const host::ShortMessage bytes = host::unpack(message);
    if (bytes.count == 0)
        return platform::midiBadParameter;
    catchUp();
    lastMessageNs_ = nowNs();
    renderer_.send(bytes);
    return platform::midiSuccess;
}

void RenderedMidi::follow(const JumpingClock& clock, std::int64_t leadNs) {
    startNs_ = lastMessageNs_;
    leadNs_ = leadNs;
    clock_ = &clock;
    open_ = false; // for the next score, which opens its device; without a reset
}

std::int64_t RenderedMidi::nowNs() const {
    return startNs_ + std::max<std::int64_t>(clock_->nowNs - leadNs_, 0);
}

void RenderedMidi::catchUp() {
    // Whole seconds are converted separately: nanoseconds times the rate of a long song would
    // exceed 64 bits.
    const std::int64_t second = 1'000'000'000;
    const std::int64_t now = nowNs();
    const std::int64_t rest = now % second * rateHz_;
    const std::int64_t due = now / second * rateHz_ + (rest + second / 2) / second;
    render(due - renderedFrames_);
}

void RenderedMidi::renderTail() {
    const std::int64_t most = std::int64_t{longestTailSeconds} * rateHz_;
    quietFrames_ = 0;
    for (std::int64_t frames = 0; frames < most && quietFrames_ < rateHz_ && !failed_;
         frames += host::Synth::blockFrames) {
        render(host::Synth::blockFrames);
    }
}

void RenderedMidi::render(std::int64_t frames) {
    while (frames > 0 && !failed_) {
        const int count = static_cast<int>(std::min<std::int64_t>(frames, Renderer::mostFrames));
        const auto quiet = renderer_.render(count);
        failed_ = !quiet;
        quietFrames_ = quiet == count ? quietFrames_ + count : quiet.value_or(0);
        renderedFrames_ += count;
        frames -= count;
    }
}

} // namespace velorin::convert

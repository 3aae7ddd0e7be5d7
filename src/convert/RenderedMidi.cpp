// Rendering between messages, and the tail behind the last one.
#include "convert/RenderedMidi.h"

#include "convert/OfflinePlatform.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velorin::convert {

namespace {

constexpr platform::MidiOutHandle onlyHandle = 1;

constexpr int quietSample = 3; ///< -80 dB of 32768 is 3.3
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
    synth_.reset();
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
    synth_.send(bytes);
    return platform::midiSuccess;
}

void RenderedMidi::catchUp() {
    // Whole seconds apart: the product of a long song's nanoseconds and the rate leaves 64 bits.
    const std::int64_t second = 1'000'000'000;
    const std::int64_t rest = clock_->nowNs % second * rateHz_;
    const std::int64_t due = clock_->nowNs / second * rateHz_ + (rest + second / 2) / second;
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
        const int count = static_cast<int>(std::min<std::int64_t>(frames, bufferFrames));
        synth_.render(buffer_.data(), count);
        failed_ = !take_(buffer_.data(), count);
        const auto begin = buffer_.rend() - 2 * count;
        const auto loud = std::find_if(begin, buffer_.rend(),
                                       [](std::int16_t s) { return std::abs(s) > quietSample; });
        const auto quiet = (loud - begin) / 2;
        quietFrames_ = loud == buffer_.rend() ? quietFrames_ + count : quiet;
        renderedFrames_ += count;
        frames -= count;
    }
}

} // namespace velorin::convert

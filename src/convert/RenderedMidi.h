// A MIDI device that plays into a file: each message takes effect at the place in the sound that
// the clock gives it.
#pragma once

#include "host/Synth.h"
#include "platform/MidiOut.h"

#include <array>
#include <cstdint>
#include <functional>

namespace velorin::convert {

class JumpingClock;

/// Takes `frames` frames, left and right in turn; false ends the rendering.
using TakeSound = std::function<bool(const std::int16_t* stereo, int frames)>;

class RenderedMidi final : public platform::MidiOut {
public:
    RenderedMidi(host::Synth& synth, int rateHz, TakeSound take)
        : synth_(synth), rateHz_(rateHz), take_(std::move(take)) {}

    /// The time is read from here; set before the first message.
    void setClock(const JumpingClock& clock) { clock_ = &clock; }

    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int index) override;
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override;
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override;
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override;

    /// Renders to the present moment of the clock.
    void catchUp();

    /// Renders on until a second has been quieter than -80 dB, for ten seconds at most.
    void renderTail();

    [[nodiscard]] bool failed() const { return failed_; }

private:
    void render(std::int64_t frames);

    static constexpr int bufferFrames = 4096;

    host::Synth& synth_;
    int rateHz_;
    TakeSound take_;
    const JumpingClock* clock_ = nullptr;
    std::int64_t renderedFrames_ = 0;
    std::int64_t quietFrames_ = 0; ///< at the end of what is rendered
    bool open_ = false;
    bool failed_ = false;
    std::array<std::int16_t, 2 * bufferFrames> buffer_{};
};

} // namespace velorin::convert

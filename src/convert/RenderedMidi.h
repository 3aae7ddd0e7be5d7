// A MIDI device that renders into a file. The clock gives the time of each message in the sound.
#pragma once

#include "convert/Renderer.h"
#include "platform/MidiOut.h"

#include <cstdint>

namespace velorin::convert {

class JumpingClock;

class RenderedMidi final : public platform::MidiOut {
public:
    /// The renderer must live longer.
    RenderedMidi(Renderer& renderer, int rateHz) : renderer_(renderer), rateHz_(rateHz) {}

    /// Must be called before the first message.
    void setClock(const JumpingClock& clock) { clock_ = &clock; }

    /// Another score follows, on a clock of its own that begins at 0. Its time `leadNs` is that of
    /// the last message so far: the first `leadNs` are left out. What sounds rings on.
    void follow(const JumpingClock& clock, std::int64_t leadNs);

    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int index) override;
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override;
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override;
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override;

    /// Renders up to the time of the clock.
    void catchUp();

    /// Continues until one second is quieter than -80 dB, for ten seconds at most.
    void renderTail();

    [[nodiscard]] bool failed() const { return failed_; }

private:
    [[nodiscard]] std::int64_t nowNs() const;
    void render(std::int64_t frames);

    Renderer& renderer_;
    int rateHz_;
    const JumpingClock* clock_ = nullptr;
    std::int64_t startNs_ = 0; ///< of the present score, in the sound
    std::int64_t leadNs_ = 0;
    std::int64_t lastMessageNs_ = 0;
    std::int64_t renderedFrames_ = 0;
    std::int64_t quietFrames_ = 0; ///< at the end of the rendered sound
    bool open_ = false;
    bool failed_ = false;
};

} // namespace velorin::convert

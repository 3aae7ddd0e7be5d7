// Turns the messages of a rendering into sound, piece by piece.
#pragma once

#include "host/midi/ShortMessage.h"
#include "host/synth/Synth.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace velorin::convert {

class Renderer {
public:
    static constexpr int mostFrames = 4096; ///< of one piece

    virtual ~Renderer() = default;

    virtual void send(const host::ShortMessage& message) = 0;

    /// Ends all sound and resets every program and controller.
    virtual void reset() = 0;

    /// Makes the next `frames` frames [1, `mostFrames`] and gives them to its targets. Returns how
    /// many frames at their end are quieter than -80 dB. No value if a target fails.
    virtual std::optional<int> render(int frames) = 0;
};

/// The number of frames at the end of `frames` frames that are quieter than -80 dB.
[[nodiscard]] int quietFramesAtEnd(const std::int16_t* stereo, int frames);

/// Gets `frames` frames, left and right in turn. Returns false to stop rendering.
using TakeSound = std::function<bool(const std::int16_t* stereo, int frames)>;

/// All rows together, with 16 bits.
class MixRenderer final : public Renderer {
public:
    /// The synthesizer must live longer.
    MixRenderer(host::Synth& synth, TakeSound take) : synth_(synth), take_(std::move(take)) {}

    void send(const host::ShortMessage& message) override { synth_.send(message); }
    void reset() override { synth_.reset(); }
    std::optional<int> render(int frames) override;

private:
    host::Synth& synth_;
    TakeSound take_;
    std::array<std::int16_t, 2 * std::size_t{mostFrames}> buffer_{};
};

} // namespace velorin::convert

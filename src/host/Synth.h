// One FluidSynth synthesizer with one SoundFont in it.
#pragma once

#include "host/ShortMessage.h"

#include <fluidsynth.h>

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velorin::host {

/// How the samples of a SoundFont come into memory.
enum class FontLoading {
    whole,    ///< all at once: afterwards no message touches a file or the heap
    asNeeded, ///< with the program change that needs them: quick to load, and small
};

/// Not for use by two threads at once; it may be made by one and handed to another.
class Synth {
public:
    /// FluidSynth works in blocks of this many frames: a message takes effect at the next of them.
    static constexpr int blockFrames = 64;

    /// Null if the SoundFont cannot be loaded. `sampleRateHz` [8000, 96000].
    [[nodiscard]] static std::unique_ptr<Synth> load(const std::filesystem::path& soundFont,
                                                     double sampleRateHz, FontLoading loading);

    /// Carries out a channel message; anything else does nothing.
    void send(const ShortMessage& message);

    /// Ends all that sounds, the reverberation too, and forgets every program and controller.
    void reset();

    /// Writes `frames` frames, left and right in turn.
    void render(float* stereo, int frames);
    void render(std::int16_t* stereo, int frames); ///< with dither; the same in every run

    [[nodiscard]] int activeVoices() { return fluid_synth_get_active_voice_count(synth_.get()); }

private:
    struct Deleter {
        void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
        void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
    };

    Synth() = default;

    std::unique_ptr<fluid_settings_t, Deleter> settings_;
    std::unique_ptr<fluid_synth_t, Deleter> synth_;
};

} // namespace velorin::host

// One FluidSynth synthesizer with one SoundFont in it.
#pragma once

#include "host/midi/ShortMessage.h"
#include "host/process/StreamThread.h"

#include <fluidsynth.h>

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velorin::host {

/// When the samples of a SoundFont are loaded.
enum class FontLoading {
    whole,    ///< all at once: afterwards no message touches a file or the heap
    asNeeded, ///< with the program change that needs them: quick to load, and small
};

/// What is added to the voices.
enum class Effects {
    usual, ///< reverberation and chorus, as the SoundFont asks for them
    none,
};

/// Not for use by two threads at once; it may be made by one and handed to another.
class Synth {
public:
    /// FluidSynth renders in blocks of this many frames: a message takes effect at the next block.
    static constexpr int blockFrames = 64;

    /// Null if the SoundFont cannot be loaded. `sampleRateHz` [8000, 96000].
    [[nodiscard]] static std::unique_ptr<Synth> load(const std::filesystem::path& soundFont,
                                                     double sampleRateHz, FontLoading loading,
                                                     Effects effects = Effects::usual);

    /// Executes a channel message; other messages are ignored.
    VELORIN_STREAM_THREAD void send(const ShortMessage& message);

    /// Ends all sound, including reverberation, and resets every program and controller.
    VELORIN_STREAM_THREAD void reset();

    /// Writes `frames` frames, left and right interleaved.
    VELORIN_STREAM_THREAD void render(float* stereo, int frames);
    void render(std::int16_t* stereo, int frames); ///< with dither; the same in every run

    VELORIN_STREAM_THREAD [[nodiscard]] int activeVoices() {
        return fluid_synth_get_active_voice_count(synth_.get());
    }

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

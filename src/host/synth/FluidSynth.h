// A synthesizer of the FluidSynth library.
#pragma once

#include "host/synth/Synth.h"

#include <fluidsynth.h>

namespace velorin::host {

class FluidSynth final : public Synth {
public:
    /// A `LoadSynth`.
    [[nodiscard]] static std::unique_ptr<Synth> load(const std::filesystem::path& soundFont,
                                                     double sampleRateHz, FontLoading loading,
                                                     Effects effects = Effects::usual);

    VELORIN_STREAM_THREAD void send(const ShortMessage& message) override;
    VELORIN_STREAM_THREAD void reset() override;
    VELORIN_STREAM_THREAD void render(float* stereo, int frames) override;
    VELORIN_STREAM_THREAD void render(std::int16_t* stereo, int frames) override;
    VELORIN_STREAM_THREAD [[nodiscard]] int activeVoices() override {
        return fluid_synth_get_active_voice_count(synth_.get());
    }

private:
    struct Deleter {
        void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
        void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
    };

    FluidSynth() = default;

    std::unique_ptr<fluid_settings_t, Deleter> settings_;
    std::unique_ptr<fluid_synth_t, Deleter> synth_;
};

} // namespace velorin::host

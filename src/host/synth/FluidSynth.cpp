// The adapter to FluidSynth.
#include "host/synth/FluidSynth.h"

namespace velorin::host {

namespace {

// FluidSynth logs a missing preset or a busy channel on standard error, from any thread. What a
// user needs to know is reported by the code that loads the font.
void silenceLog() {
    for (int level = FLUID_PANIC; level <= FLUID_DBG; ++level) {
        fluid_set_log_function(level, nullptr, nullptr);
    }
}

// FluidSynth fills its tables while it makes its first synthesizer. A second thread does not wait
// for that and would play with half of them. So the first one is made while all other threads wait.
// Held by tests/e2e/convert_kill_test.py, which converts two scores at a time.
fluid_synth_t* newSynth(fluid_settings_t* settings) {
    fluid_synth_t* made = nullptr;
    [[maybe_unused]] static const bool areTablesFilled = [&] {
        made = new_fluid_synth(settings);
        return made != nullptr;
    }();
    return made != nullptr ? made : new_fluid_synth(settings);
}

} // namespace

std::unique_ptr<Synth> FluidSynth::load(const std::filesystem::path& soundFont, double sampleRateHz,
                                        FontLoading loading, Effects effects) {
    silenceLog();
    std::unique_ptr<FluidSynth> made(new FluidSynth);
    made->settings_.reset(new_fluid_settings());
    fluid_settings_t* settings = made->settings_.get();
    fluid_settings_setnum(settings, "synth.sample-rate", sampleRateHz);
    // One thread at a time uses a synthesizer, so it needs no lock of its own: the stream's thread
    // must never wait for one.
    fluid_settings_setint(settings, "synth.threadsafe-api", 0);
    fluid_settings_setint(settings, "synth.lock-memory", 0);
    fluid_settings_setint(settings, "synth.dynamic-sample-loading",
                          loading == FontLoading::asNeeded ? 1 : 0);
    fluid_settings_setint(settings, "synth.reverb.active", effects == Effects::usual ? 1 : 0);
    fluid_settings_setint(settings, "synth.chorus.active", effects == Effects::usual ? 1 : 0);
    made->synth_.reset(newSynth(settings));
    if (!made->synth_)
        return nullptr;
    if (fluid_synth_sfload(made->synth_.get(), soundFont.string().c_str(), 1) == FLUID_FAILED)
        return nullptr;
    return made;
}

void FluidSynth::send(const ShortMessage& message) {
    fluid_synth_t* synth = synth_.get();
    const int channel = message.channel();
    const int first = message.byte[1];
    const int second = message.byte[2];
    switch (message.kind()) {
    case 0x80:
        fluid_synth_noteoff(synth, channel, first);
        break;
    case 0x90:
        fluid_synth_noteon(synth, channel, first, second);
        break;
    case 0xA0:
        fluid_synth_key_pressure(synth, channel, first, second);
        break;
    case 0xB0:
        fluid_synth_cc(synth, channel, first, second);
        break;
    case 0xC0:
        fluid_synth_program_change(synth, channel, first);
        break;
    case 0xD0:
        fluid_synth_channel_pressure(synth, channel, first);
        break;
    case 0xE0:
        fluid_synth_pitch_bend(synth, channel, first + (second << 7));
        break;
    default:
        break;
    }
}

void FluidSynth::reset() {
    fluid_synth_system_reset(synth_.get());
}

void FluidSynth::render(float* stereo, int frames) {
    fluid_synth_write_float(synth_.get(), frames, stereo, 0, 2, stereo, 1, 2);
}

void FluidSynth::render(std::int16_t* stereo, int frames) {
    fluid_synth_write_s16(synth_.get(), frames, stereo, 0, 2, stereo, 1, 2);
}

} // namespace velorin::host

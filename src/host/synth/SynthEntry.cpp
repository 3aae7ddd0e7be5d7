// The entry of the module velorin-synth.so.
#include "host/synth/FluidSynth.h"
#include "host/synth/SynthModule.h"

velorin::host::LoadSynth velorinLoadSynth() {
    return velorin::host::FluidSynth::load;
}

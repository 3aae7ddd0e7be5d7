// Loads the module with the synthesizer, for programs that seldom need one.
#pragma once

#include "host/synth/Synth.h"
#include "platform/Result.h"

namespace velorin::host {

/// The synthesizer of velorin-synth.so. The first call loads the module, which stays loaded. Fails
/// if the module or a library that it needs is missing or damaged; the reason begins with the name
/// of that file. Thread-safe.
[[nodiscard]] platform::Result<LoadSynth> loadSynthModule();

} // namespace velorin::host

/// What the module gives. It is found by its name, so its name is not mangled.
extern "C" velorin::host::LoadSynth velorinLoadSynth();

// Loads the module by name. The run path of the program includes the folder of the module.
#include "host/synth/SynthModule.h"

#include <dlfcn.h>

namespace velorin::host {

platform::Result<LoadSynth> loadSynthModule() {
    void* module = dlopen("velorin-synth.so", RTLD_NOW | RTLD_LOCAL);
    void* entry = module ? dlsym(module, "velorinLoadSynth") : nullptr;
    if (!entry)
        return platform::Failure{dlerror()};
    return reinterpret_cast<decltype(&velorinLoadSynth)>(entry)();
}

} // namespace velorin::host

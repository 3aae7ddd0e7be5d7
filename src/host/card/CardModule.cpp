// Loads the module by name. The run path of the program includes the folder of the module.
#include "host/card/CardModule.h"

#include <dlfcn.h>

#include <utility>

namespace velorin::host {

platform::Result<std::unique_ptr<CardStream>> openCard(CardRequest request) {
    void* module = dlopen("velorin-card.so", RTLD_NOW | RTLD_LOCAL);
    void* entry = module ? dlsym(module, "velorinOpenCard") : nullptr;
    if (!entry)
        return platform::Failure{dlerror()};
    return reinterpret_cast<decltype(&velorinOpenCard)>(entry)()(std::move(request));
}

} // namespace velorin::host

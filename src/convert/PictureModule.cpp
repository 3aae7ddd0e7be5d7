// Loading the module by its name; the program's own search path leads to the place beside it.
#include "convert/PictureModule.h"

#include "convert/ScorePicture.h"

#include <dlfcn.h>

namespace velorin::convert {

std::string drawPng(Studio& studio) {
    void* module = dlopen("velorin-picture.so", RTLD_NOW | RTLD_LOCAL);
    void* entry = module ? dlsym(module, "velorinPngOf") : nullptr;
    if (!entry)
        return {};
    std::string png;
    reinterpret_cast<decltype(&velorinPngOf)>(entry)(studio, png);
    return png;
}

} // namespace velorin::convert

// Loads the module by name. The run path of the program includes the folder of the module.
#include "convert/PictureModule.h"

#include "convert/ScorePicture.h"

#include <dlfcn.h>

namespace velorin::convert {

std::string drawPng(Studio& studio, int scale, int thumbnailPx) {
    void* module = dlopen("velorin-picture.so", RTLD_NOW | RTLD_LOCAL);
    void* entry = module ? dlsym(module, "velorinPngOf") : nullptr;
    if (!entry)
        return {};
    std::string png;
    reinterpret_cast<decltype(&velorinPngOf)>(entry)(studio, scale, thumbnailPx, png);
    return png;
}

} // namespace velorin::convert

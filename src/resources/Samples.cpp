// Finding a stored sample by its name.
#include "resources/Samples.h"

namespace velorin {

const Sample* findSample(std::string_view name) {
    for (const Sample& sample : storedSamples())
        if (sample.name == name)
            return &sample;
    return nullptr;
}

} // namespace velorin

// Finds a sample by name.
#include "tutorial/Samples.h"

namespace velorin {

const Sample* findSample(std::string_view name) {
    for (const Sample& sample : storedSamples())
        if (sample.name == name)
            return &sample;
    return nullptr;
}

} // namespace velorin

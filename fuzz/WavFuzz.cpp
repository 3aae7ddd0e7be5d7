// Any bytes as a WAV file: it is read to its end without harm, and gives samples that can be mixed.
#include "MemoryFile.h"
#include "SoundReading.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const MemoryFile file(data, size);
    if (const auto wav = velorin::host::openWav(file.path()))
        readSound(*wav);
    return 0;
}

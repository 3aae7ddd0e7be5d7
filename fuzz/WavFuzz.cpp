// Any bytes as a WAV file: reading it to its end gives finite samples.
#include "MemoryFile.h"
#include "SoundReading.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const MemoryFile file(data, size);
    if (const auto wav = velorin::host::openWav(file.path()))
        readSound(*wav);
    return 0;
}

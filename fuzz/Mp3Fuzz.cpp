// Any bytes as an MP3 file: reading it to its end gives finite samples.
#include "MemoryFile.h"
#include "SoundReading.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const MemoryFile file(data, size);
    if (const auto mp3 = velorin::host::openMp3(file.path()))
        readSound(*mp3);
    return 0;
}

// Any bytes as a MIDI file, a WAV file and an MP3 file: they are read to their end without harm.
#include "host/media/MidiFile.h"
#include "host/media/SoundReader.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

using namespace velorin::host;

namespace {

void expect(bool holds) {
    if (!holds)
        std::abort();
}

/// A file that is nowhere but in memory.
class MemoryFile {
public:
    MemoryFile(const unsigned char* data, std::size_t size) : handle_(memfd_create("fuzz", 0)) {
        expect(handle_ >= 0 && write(handle_, data, size) == static_cast<ssize_t>(size));
    }
    ~MemoryFile() { close(handle_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(handle_); }

private:
    int handle_;
};

void readAll(SoundReader& reader) {
    float stereo[2 * 1024];
    expect(reader.frames() >= 0);
    for (int i = 0; i < 100 && reader.read(stereo, 1024) > 0; ++i) {
    }
    if (reader.seek(reader.frames() / 2))
        reader.read(stereo, 1024);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (const auto music = readMidiFile(std::span(data, size))) {
        const auto isLater = [](const MidiFile::Event& a, const MidiFile::Event& b) {
            return a.timeUs > b.timeUs;
        };
        expect(std::adjacent_find(music->events.begin(), music->events.end(), isLater) ==
               music->events.end());
        expect(music->events.empty() || music->events.back().timeUs <= music->lengthUs);
    }
    const MemoryFile file(data, size);
    if (const auto wav = openWav(file.path()))
        readAll(*wav);
    if (const auto mp3 = openMp3(file.path()))
        readAll(*mp3);
    return 0;
}

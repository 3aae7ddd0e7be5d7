// Any bytes as a MIDI file: its events are channel messages in the order of time, and none is after
// its end.
#include "Expect.h"
#include "host/midi/MidiFile.h"

#include <algorithm>

using namespace velorin::host;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto music = readMidiFile(std::span(data, size));
    if (!music)
        return 0;
    std::int64_t before = 0;
    for (const MidiFile::Event& event : music->events) {
        expect(event.timeUs >= before);
        expect(event.message.count >= 2 && event.message.count <= 3);
        expect(event.message.byte[0] >= 0x80 && event.message.byte[0] <= 0xEF);
        before = event.timeUs;
    }
    expect(before <= music->lengthUs);
    return 0;
}

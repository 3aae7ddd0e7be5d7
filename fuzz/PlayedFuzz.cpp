// Any text as a score, and its last byte as row options: the MIDI file of what it plays is whole,
// each note on has a note off of its channel and key, and no event is far from its time.
#include "Expect.h"
#include "convert/LoadedScore.h"
#include "convert/PlayedMidiFile.h"
#include "host/midi/MidiFile.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <span>
#include <string>

using namespace velorin;

namespace {

constexpr double mostErrorUs = 300.0;

// Bits: chords, strum, a hidden row, and how loud.
void setOptions(Studio& studio, unsigned bits) {
    for (RowOptions::Row& row : studio.setup.values.options.rows) {
        row.chord = (bits & 1U) != 0;
        row.strummed = (bits & 2U) != 0;
        row.volume = std::to_string(static_cast<int>(bits & 0xF8U) - 40);
    }
    studio.setup.values.options.rows[bits % scoreRows].hidden = (bits & 4U) != 0;
}

bool isNoteOn(const host::ShortMessage& message) {
    return message.kind() == 0x90 && message.byte[2] > 0;
}

std::size_t noteOnsIn(const convert::PlayedSong& song) {
    std::size_t count = 0;
    for (const convert::PlayedMessage& sent : song.messages)
        count += isNoteOn(sent.message) ? 1 : 0;
    return count;
}

// Tracks of one time are merged in their order, so a note off may only come after its note on.
void expectPairs(const host::MidiFile& file, std::size_t noteOns) {
    std::array<std::array<int, 128>, 16> open{};
    std::size_t begun = 0;
    for (const host::MidiFile::Event& event : file.events) {
        const host::ShortMessage& message = event.message;
        int& count = open[static_cast<std::size_t>(message.channel())][message.byte[1]];
        if (isNoteOn(message)) {
            ++count;
            ++begun;
        } else if (message.kind() == 0x80) {
            expect(count-- > 0);
        }
    }
    expect(begun == noteOns);
    for (const auto& channel : open) {
        for (const int count : channel)
            expect(count == 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    convert::KeptMidi midi;
    convert::LoadedScore score(midi);
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.empty() || !score.open("in.sng", text))
        return 0;
    setOptions(score.studio, data[size - 1]);
    const convert::PlayedSong song = convert::playToEnd(score, midi);
    const std::string bytes = convert::playedMidiFile(song, text);
    const auto file = host::readMidiFile(
        std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    expect(file && file->isWhole);
    expectPairs(*file, noteOnsIn(song));
    const double lengthUs = static_cast<double>(song.lengthNs) / 1e3;
    expect(std::abs(static_cast<double>(file->lengthUs) - lengthUs) <= mostErrorUs);
    return 0;
}

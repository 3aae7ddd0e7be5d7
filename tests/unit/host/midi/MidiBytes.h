// The bytes of small MIDI files for tests.
#pragma once

#include "host/midi/MidiFile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace velorin::host::test {

inline std::optional<MidiFile> readMidi(const std::string& bytes) {
    return readMidiFile(
        std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

inline std::string midiChunk(const std::string& name, const std::string& content) {
    std::string bytes = name;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(content.size() >> shift);
    return bytes + content;
}

inline std::string midiHeader(int division, char format = 1, char tracks = 2) {
    return midiChunk("MThd", std::string{0, format, 0, tracks, static_cast<char>(division >> 8),
                                         static_cast<char>(division)});
}

/// 50 ms at the usual tempo, then twice as fast: a quarter has 100 ticks, of 5 ms each, then 2.5.
inline std::string shortSong() {
    const std::string track("\x00\xC0\x05"                 // program 5
                            "\x00\x90\x3C\x40"             // note 60
                            "\x0A\xFF\x51\x03\x03\xD0\x90" // after 10 ticks 250,000 us a quarter
                            "\x0A\x3C\x00"                 // after 10 more the note ends
                            "\x00\xFF\x2F\x00",
                            3 + 4 + 7 + 3 + 4);
    std::string file("MThd\0\0\0\6\0\0\0\1\0\x64MTrk\0\0\0", 21);
    file += static_cast<char>(track.size());
    return file + track;
}

} // namespace velorin::host::test

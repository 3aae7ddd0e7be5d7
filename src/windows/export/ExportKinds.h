// The five kinds of files that the Export window makes, with their words and their sizes.
#pragma once

#include "convert/Options.h"
#include "windows/making/MadeFile.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velorin {

/// A choice of the list "Quality", and what it means for the conversion.
struct ExportQuality {
    const char* words;
    int value; ///< kilobits per second, hertz, or pixels for each pixel; 0 or 1 for MIDI files
};

struct ExportKind {
    const char* name;    ///< on its card, and the object name of the card in `control`
    const char* control; ///< also the value of the setting
    const char* note;
    const char* picture;  ///< of the look
    const char* ending;   ///< ".mp3"
    const char* sentence; ///< below the panel
    const char* work;     ///< "Encoding", before the name of the file
    convert::Kind kind;
    std::span<const ExportQuality> qualities; ///< the default first
    bool isSound; ///< it has a length, and can be played by the Recording Toolbar or a browser
};

/// In the order of the cards.
[[nodiscard]] std::span<const ExportKind> exportKinds();

/// What the score of an export comes to, in the shape that decides its size.
struct ExportMeasure {
    double seconds = 0.0; ///< of the song, without the time to ring out
    int columns = 0;
    std::size_t midiBytes = 0;      ///< of the MIDI file as it plays
    std::size_t plainMidiBytes = 0; ///< of the MIDI file of the Save command
};

/// What a sound rings on after the song, in seconds, as expected.
constexpr int expectedTail = 2;

/// Sets what the quality says. `quality` is a place in the list of the kind.
void setQuality(convert::Options& options, const ExportKind& kind, std::size_t quality);

[[nodiscard]] double expectedBytes(const ExportKind& kind, std::size_t quality,
                                   const ExportMeasure& measure);

} // namespace velorin

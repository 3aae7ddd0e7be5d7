// The table of the kinds.
#include "windows/export/ExportKinds.h"

namespace velorin {

namespace {

constexpr std::array mp3Qualities{
    ExportQuality{"Good for listening (192 kbit/s)", 192},
    ExportQuality{"Best (320 kbit/s)", 320},
    ExportQuality{"Small, for messages (96 kbit/s)", 96},
};
constexpr std::array wavQualities{
    ExportQuality{"As on a CD (44,100 Hz)", 44100},
    ExportQuality{"For video (48,000 Hz)", 48000},
};
constexpr std::array midiQualities{
    ExportQuality{"As it plays: chords, strums, true speed", 0},
    ExportQuality{"As the Save button writes it", 1},
};
constexpr std::array pageQualities{
    ExportQuality{"With sound, good for listening", 192},
    ExportQuality{"With sound, small", 96},
};
constexpr std::array pictureQualities{
    ExportQuality{"Sharp (twice the size)", 2},
    ExportQuality{"True size", 1},
    ExportQuality{"For print (four times)", 4},
};

constexpr std::array kinds{
    ExportKind{"MP3", "mp3", "small file", "kind-mp3", ".mp3",
               "The song as it sounds when it plays: true speed, chords and volumes.", "Encoding",
               convert::Kind::mp3, mp3Qualities, true},
    ExportKind{"WAV", "wav", "full sound", "kind-wav", ".wav",
               "The song as it sounds when it plays, without any loss.", "Rendering",
               convert::Kind::wav, wavQualities, true},
    ExportKind{"MIDI", "midi", "just the notes", "kind-midi", ".mid",
               "The notes, for other music programs and instruments.", "Writing",
               convert::Kind::mid, midiQualities, true},
    ExportKind{"Song page", "page", "for a browser", "kind-page", ".html",
               "One file that shows and plays the song in any browser.", "Rendering",
               convert::Kind::html, pageQualities, true},
    ExportKind{"Picture", "picture", "as drawn", "kind-picture", ".png",
               "The whole sheet as one picture, without hidden channels.", "Drawing",
               convert::Kind::png, pictureQualities, false},
};

// Measured on the songs that come with the program.
constexpr double pageBytes = 66'000.0;          ///< of a page without its sound
constexpr double pictureBytesPerColumn = 175.0; ///< at true size
constexpr double base64 = 4.0 / 3.0;

double bytesOfMp3(double seconds, int kilobits) {
    return seconds * kilobits * 125.0;
}

} // namespace

std::span<const ExportKind> exportKinds() {
    return kinds;
}

void setQuality(convert::Options& options, const ExportKind& kind, std::size_t quality) {
    const int value = kind.qualities[quality].value;
    switch (kind.kind) {
    case convert::Kind::wav:
        options.rateHz = value;
        break;
    case convert::Kind::mid:
        options.plainMidi = value != 0;
        break;
    case convert::Kind::png:
        options.pictureScale = value;
        break;
    default:
        options.bitrate = value;
        break;
    }
}

double expectedBytes(const ExportKind& kind, std::size_t quality, const ExportMeasure& measure) {
    const int value = kind.qualities[quality].value;
    const double seconds = measure.seconds + expectedTail;
    switch (kind.kind) {
    case convert::Kind::mp3:
        return bytesOfMp3(seconds, value);
    case convert::Kind::wav:
        return seconds * value * 4.0;
    case convert::Kind::mid:
        return static_cast<double>(value != 0 ? measure.plainMidiBytes : measure.midiBytes);
    case convert::Kind::html:
        return pageBytes + base64 * bytesOfMp3(seconds, value);
    default:
        return pictureBytesPerColumn * measure.columns * value;
    }
}

} // namespace velorin

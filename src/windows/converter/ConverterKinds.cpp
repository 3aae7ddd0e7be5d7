// The table of the kinds.
#include "windows/converter/ConverterKinds.h"

#include <algorithm>
#include <array>

namespace velorin {

namespace {

using convert::Kind;

constexpr std::array kinds{
    ConverterKind{"MP3, good for listening", "mp3", ".mp3", Kind::mp3},
    ConverterKind{"WAV, full sound", "wav", ".wav", Kind::wav},
    ConverterKind{"MIDI as it plays", "midi", ".mid", Kind::mid},
    ConverterKind{"Song page", "page", ".html", Kind::html},
    ConverterKind{"Picture", "picture", ".png", Kind::png},
    ConverterKind{"Score from MIDI", "score", ".sng", Kind::sng},
};

} // namespace

std::span<const ConverterKind> converterKinds() {
    return kinds;
}

std::size_t kindOfSetting(const std::string& setting) {
    const auto* const found =
        std::find_if(kinds.begin(), kinds.end(),
                     [&setting](const ConverterKind& kind) { return setting == kind.setting; });
    return found != kinds.end() ? static_cast<std::size_t>(found - kinds.begin()) : 0;
}

std::string whyNotMade(const std::filesystem::path& source, Kind kind) {
    switch (convert::sourceKindOf(source)) {
    case Kind::mid:
        return kind == Kind::mid ? "The file is a MIDI file already." : "";
    case Kind::wav:
        return kind == Kind::mp3 ? "" : "A WAV file can only become an MP3 file.";
    default:
        return kind == Kind::sng ? "The file is a score already." : "";
    }
}

} // namespace velorin

// Walks the chunks: each has a name, a length and a content.
#include "host/media/WavChunks.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>

namespace velorin::host {

namespace {

constexpr int mostChunks = 1000; ///< before the samples; a file with more is damaged

/// Reads numbers and names anywhere in a file; outside it everything is 0.
class WavBytes {
public:
    explicit WavBytes(const std::filesystem::path& path) : file_(path, std::ios::binary) {}

    std::string name(std::int64_t place) {
        std::array<char, 4> bytes{};
        file_.clear();
        file_.seekg(place);
        file_.read(bytes.data(), bytes.size());
        return file_.gcount() == 4 ? std::string(bytes.data(), bytes.size()) : std::string();
    }

    std::uint32_t number(std::int64_t place) {
        const std::string bytes = name(place);
        std::uint32_t value = 0;
        for (std::size_t i = bytes.size(); i > 0; --i)
            value = value << 8 | static_cast<unsigned char>(bytes[i - 1]);
        return value;
    }

private:
    std::ifstream file_;
};

bool isName(const std::string& name) {
    return name.size() == 4 && std::all_of(name.begin(), name.end(), [](unsigned char c) {
               return std::isalnum(c) != 0 || c == ' ' || c == '_';
           });
}

// In the extensible form, the real form is in the first bytes of the identifier.
int formAt(WavBytes& file, std::int64_t content) {
    constexpr int extensible = 0xFFFE;
    const auto form = static_cast<int>(file.number(content) & 0xFFFFU);
    return form == extensible ? static_cast<int>(file.number(content + 24) & 0xFFFFU) : form;
}

/// A sample format that the library does not read, or only up to some count of channels.
struct UnsupportedForm {
    int form;
    const char* name;
    int mostChannels;
};

constexpr UnsupportedForm unsupportedForms[] = {
    {0x02, "Microsoft ADPCM", 2}, {0x10, "OKI ADPCM", 0},
    {0x11, "IMA ADPCM", 2},       {0x14, "G.723", 0},
    {0x20, "Yamaha ADPCM", 0},    {0x22, "TrueSpeech", 0},
    {0x40, "G.721", 1},           {0x45, "G.726", 0},
    {0x50, "MPEG audio", 0},      {0x55, "MP3", 0},
    {0x64, "G.726", 0},           {0x160, "Windows Media", 0},
    {0x161, "Windows Media", 0},
};

} // namespace

WavChunks readWavChunks(const std::filesystem::path& path) {
    WavChunks chunks;
    WavBytes file(path);
    const std::string kind = file.name(0);
    chunks.isWav = (kind == "RIFF" || kind == "RF64") && file.name(8) == "WAVE";
    std::int64_t place = 12;
    for (int count = 0; chunks.isWav && count < mostChunks; ++count) {
        const std::string name = file.name(place);
        if (name.empty() || name == "data")
            break;
        if (name == "fmt ") {
            chunks.form = formAt(file, place + 8);
            chunks.channels = static_cast<int>(file.number(place + 10) & 0xFFFFU);
        }
        const std::int64_t length = file.number(place + 4);
        const std::int64_t end = place + 8 + length;
        place = end + length % 2;
        if (place != end && !isName(file.name(place)) && isName(file.name(end))) {
            chunks.missingPads.push_back(end);
            place = end;
        }
    }
    return chunks;
}

std::string unreadableReason(const WavChunks& chunks) {
    if (!chunks.isWav || chunks.form == 0)
        return "is no WAV file";
    for (const UnsupportedForm& hard : unsupportedForms) {
        if (hard.form != chunks.form || chunks.channels <= hard.mostChannels)
            continue;
        const std::string count = std::to_string(chunks.channels);
        return "is a WAV file in a form that cannot be read, " + std::string(hard.name) +
               (hard.mostChannels > 0 ? " of " + count + " channels" : "");
    }
    return "is a WAV file that is damaged or in a form that cannot be read";
}

} // namespace velorin::host

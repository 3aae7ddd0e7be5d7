// Walks the chunks: each has a name, a length and a content.
#include "host/media/WavChunks.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <fstream>
#include <utility>

namespace velorin::host {

namespace {

constexpr int mostChunks = 1000; ///< before the samples; a file with more is damaged

/// Reads numbers and names anywhere in a file; outside it everything is 0.
class WavBytes {
public:
    explicit WavBytes(const std::filesystem::path& path) : file_(path, std::ios::binary) {
        std::error_code failed;
        const std::uintmax_t size = std::filesystem::file_size(path, failed);
        size_ = failed ? 0 : static_cast<std::int64_t>(size);
        isBigEndian_ = name(0) == "RIFX";
    }

    [[nodiscard]] std::int64_t size() const { return size_; }

    std::string name(std::int64_t place) {
        std::array<char, 4> bytes{};
        file_.clear();
        file_.seekg(place);
        file_.read(bytes.data(), bytes.size());
        return file_.gcount() == 4 ? std::string(bytes.data(), bytes.size()) : std::string();
    }

    std::uint32_t number(std::int64_t place) {
        std::string bytes = name(place);
        if (!isBigEndian_)
            std::reverse(bytes.begin(), bytes.end());
        std::uint32_t value = 0;
        for (const char byte : bytes)
            value = value << 8 | static_cast<unsigned char>(byte);
        return value;
    }

    /// A number of two bytes.
    int shortNumber(std::int64_t place) {
        const std::uint32_t both = number(place);
        return static_cast<int>(isBigEndian_ ? both >> 16 : both & 0xFFFFU);
    }

private:
    std::ifstream file_;
    std::int64_t size_ = 0;
    bool isBigEndian_ = false;
};

bool isName(const std::string& name) {
    return name.size() == 4 && std::all_of(name.begin(), name.end(), [](unsigned char c) {
               return std::isalnum(c) != 0 || c == ' ' || c == '_';
           });
}

// In the extensible form, the real form is in the first bytes of the identifier.
int formAt(WavBytes& file, std::int64_t content) {
    constexpr int extensible = 0xFFFE;
    const int form = file.shortNumber(content);
    return form == extensible ? file.shortNumber(content + 24) : form;
}

/// A number of eight bytes in a file of more than 4 GB; 0 if it is no length.
std::int64_t longNumber(WavBytes& file, std::int64_t place) {
    const std::uint64_t high = file.number(place + 4);
    constexpr std::uint64_t most = 0x7FFFFFFFU;
    return high > most ? 0 : static_cast<std::int64_t>(high << 32 | file.number(place));
}

void need(std::vector<FilePiece>& pieces, std::int64_t begin, std::int64_t end) {
    if (!pieces.empty() && !pieces.back().isZeros && pieces.back().end == begin)
        pieces.back().end = end;
    else
        pieces.push_back({begin, end});
}

/// The end of the samples, whose chunk is at `place`. A chunk that was cut off, or whose length was
/// never written, ends with the file. `longLength` is the length in "ds64".
std::int64_t endOfSamples(WavBytes& file, std::int64_t place, std::int64_t longLength) {
    constexpr std::uint32_t unknown = 0xFFFFFFFFU;
    constexpr std::uint32_t neverClosed = 8; // the length in the header of the file
    const std::uint32_t told = file.number(place + 4);
    if (told == 0 && file.number(4) == neverClosed)
        return file.size();
    const std::int64_t length = told == unknown && longLength > 0 ? longLength : told;
    const std::int64_t content = place + 8;
    const std::int64_t padded = length <= file.size() ? length + length % 2 : length;
    return content + std::min(padded, std::max<std::int64_t>(file.size() - content, 0));
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
    chunks.isWav = (kind == "RIFF" || kind == "RIFX" || kind == "RF64") && file.name(8) == "WAVE";
    std::vector<FilePiece> needed;
    std::int64_t place = 12;
    need(needed, 0, place);
    std::int64_t longLength = 0;
    for (int count = 0; chunks.isWav && count < mostChunks; ++count) {
        const std::string name = file.name(place);
        if (name.empty())
            break;
        if (name == "data") {
            need(needed, place, endOfSamples(file, place, longLength));
            chunks.needed = std::move(needed);
            break;
        }
        if (name == "fmt ") {
            chunks.form = formAt(file, place + 8);
            chunks.channels = file.shortNumber(place + 10);
        }
        if (name == "ds64")
            longLength = longNumber(file, place + 16);
        const std::int64_t length = file.number(place + 4);
        const std::int64_t end = place + 8 + length;
        const std::int64_t padded = end + length % 2;
        const bool padIsMissing =
            padded != end && !isName(file.name(padded)) && isName(file.name(end));
        const std::int64_t next = padIsMissing ? end : padded;
        if (name == "ds64" || name == "fmt " || name == "fact") {
            need(needed, place, next);
            if (padIsMissing)
                needed.push_back({0, 1, true});
        }
        place = next;
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

// A SoundFont is a RIFF file:
//
//   RIFF size "sfbk"
//       LIST size "INFO" ...
//       LIST size "sdta" ...             the samples, skipped
//       LIST size "pdta"
//           phdr size record record ...  38 bytes each, the last of them ends the list
//           ...
#include "host/synth/SoundFontHeader.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <fstream>
#include <string>

namespace velorin::host {

namespace {

constexpr std::size_t recordBytes = 38;
constexpr std::size_t programOffset = 20;
constexpr std::size_t bankOffset = 22;
constexpr std::uint32_t mostRecords = 65536; ///< more than banks and programs can distinguish

struct Chunk {
    std::string id;
    std::uint32_t size = 0;
    std::streamoff end = 0; ///< where the next chunk begins; chunks have even lengths
};

std::optional<Chunk> readChunk(std::istream& in) {
    std::array<unsigned char, 8> head{};
    if (!in.read(reinterpret_cast<char*>(head.data()), head.size()))
        return std::nullopt;
    Chunk chunk;
    chunk.id.assign(head.begin(), head.begin() + 4);
    chunk.size = head[4] | head[5] << 8 | head[6] << 16 | static_cast<std::uint32_t>(head[7]) << 24;
    chunk.end = static_cast<std::streamoff>(in.tellg()) + chunk.size + (chunk.size & 1);
    return chunk;
}

std::string readForm(std::istream& in) {
    std::string form(4, '\0');
    in.read(form.data(), 4);
    return form;
}

// Skips chunks from here on until one has the given name and, if given, the form. The stream is
// then after its header.
std::optional<Chunk> findChunk(std::istream& in, const std::string& id, const std::string& form) {
    while (std::optional<Chunk> chunk = readChunk(in)) {
        if (chunk->id == id && (form.empty() || readForm(in) == form))
            return chunk;
        in.seekg(chunk->end);
    }
    return std::nullopt;
}

int readWord(const std::array<unsigned char, recordBytes>& record, std::size_t offset) {
    return record[offset] | record[offset + 1] << 8;
}

} // namespace

std::optional<std::vector<Preset>> readPresets(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::optional<Chunk> riff = readChunk(in);
    if (!riff || riff->id != "RIFF" || readForm(in) != "sfbk")
        return std::nullopt;
    if (!findChunk(in, "LIST", "pdta"))
        return std::nullopt;
    const std::optional<Chunk> headers = findChunk(in, "phdr", "");
    if (!headers || headers->size / recordBytes > mostRecords)
        return std::nullopt;
    std::vector<Preset> presets;
    std::array<unsigned char, recordBytes> record{};
    for (std::uint32_t left = headers->size / recordBytes; left > 1; --left) {
        if (!in.read(reinterpret_cast<char*>(record.data()), record.size()))
            break;
        presets.push_back({readWord(record, bankOffset), readWord(record, programOffset)});
    }
    return presets;
}

bool isGeneralMidi(const std::vector<Preset>& presets) {
    std::bitset<128> melodic;
    bool percussion = false;
    for (const Preset& preset : presets) {
        if (preset.bank == 0 && preset.program < 128)
            melodic.set(static_cast<std::size_t>(preset.program));
        percussion = percussion || preset.bank == 128;
    }
    return melodic.all() && percussion;
}

} // namespace velorin::host

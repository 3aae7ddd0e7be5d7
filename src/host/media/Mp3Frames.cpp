// Finds frames by their headers of four bytes, which give the length of a frame.
#include "host/media/Mp3Frames.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <optional>

namespace velorin::host {

namespace {

constexpr int framesInARow = 4;

/// Reads four bytes anywhere in a file, through a block buffer.
class HeaderBytes {
public:
    explicit HeaderBytes(const std::filesystem::path& path) : file_(path, std::ios::binary) {
        std::error_code failed;
        const std::uintmax_t size = std::filesystem::file_size(path, failed);
        size_ = failed ? 0 : static_cast<std::int64_t>(size);
    }

    [[nodiscard]] std::int64_t size() const { return size_; }

    /// The first byte is the highest. 0 if the four bytes are not all in the file.
    std::uint32_t at(std::int64_t place) {
        if (place < 0 || place + 4 > size_)
            return 0;
        if (place < first_ || place + 4 > first_ + got_)
            load(place);
        if (place + 4 > first_ + got_)
            return 0;
        std::uint32_t word = 0;
        for (std::int64_t i = 0; i < 4; ++i)
            word = word << 8 | block_[static_cast<std::size_t>(place - first_ + i)];
        return word;
    }

private:
    void load(std::int64_t place) {
        first_ = place;
        file_.clear();
        file_.seekg(place);
        file_.read(reinterpret_cast<char*>(block_.data()), block_.size());
        got_ = std::max<std::int64_t>(file_.gcount(), 0);
    }

    std::ifstream file_;
    std::int64_t size_ = 0;
    std::array<std::uint8_t, 65536> block_{};
    std::int64_t first_ = 0;
    std::int64_t got_ = 0;
};

struct Frame {
    std::uint32_t kind = 0; ///< the bits that all frames of a file have in common
    std::int64_t bytes = 0;
};

//     11111111 111vvll. bbbbrrp. ........
//              |  | |   |   | padding
//              |  | |   |   sample rate
//              |  | layer   bitrate
//              |  version
constexpr std::uint32_t syncBits = 0xFFE00000;
constexpr std::uint32_t kindBits = 0xFFFE0C00; // sync, version, layer, sample rate

// Layer III only. No value if this is no header, or one without the frame's length.
std::optional<Frame> frameOf(std::uint32_t word) {
    constexpr int kilobits1[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    constexpr int kilobits2[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
    constexpr int rates[] = {44100, 48000, 32000};
    const unsigned version = word >> 19 & 3; // 0: 2.5, 2: 2, 3: 1
    const unsigned layer = word >> 17 & 3;   // 1: III
    const unsigned bitrate = word >> 12 & 15;
    const unsigned rate = word >> 10 & 3;
    if ((word & syncBits) != syncBits || version == 1 || layer != 1 || bitrate == 0 ||
        bitrate == 15 || rate == 3)
        return std::nullopt;
    const int divisor = version == 3 ? 1 : version == 2 ? 2 : 4;
    const int rateHz = rates[rate] / divisor;
    const int samplesBy8 = version == 3 ? 144 : 72;
    const int kilobits = (version == 3 ? kilobits1 : kilobits2)[bitrate];
    const std::int64_t padding = word >> 9 & 1;
    return Frame{word & kindBits, samplesBy8 * kilobits * 1000 / rateHz + padding};
}

// The kind of the frames at `place` if `framesInARow` of them follow one another, or the last ones
// of the file do; else 0.
std::uint32_t kindOfRow(HeaderBytes& file, std::int64_t place) {
    std::uint32_t kind = 0;
    for (int i = 0; i < framesInARow && !(i > 0 && place == file.size()); ++i) {
        const auto frame = frameOf(file.at(place));
        if (!frame || (kind != 0 && frame->kind != kind))
            return 0;
        kind = frame->kind;
        place += frame->bytes;
    }
    return kind;
}

} // namespace

std::vector<FilePiece> findMp3Pieces(const std::filesystem::path& path) {
    std::vector<FilePiece> pieces;
    HeaderBytes file(path);
    std::uint32_t kind = 0;
    for (std::int64_t place = 0; place + 4 <= file.size(); ++place) {
        if ((file.at(place) & syncBits) != syncBits)
            continue;
        const std::uint32_t found = kindOfRow(file, place);
        if (found == 0 || (kind != 0 && found != kind))
            continue;
        kind = found;
        FilePiece piece{pieces.empty() ? 0 : place, place};
        for (auto frame = frameOf(file.at(piece.end)); frame && frame->kind == kind;
             frame = frameOf(file.at(piece.end)))
            piece.end = std::min(piece.end + frame->bytes, file.size());
        pieces.push_back(piece);
        place = piece.end - 1;
    }
    return pieces;
}

} // namespace velorin::host

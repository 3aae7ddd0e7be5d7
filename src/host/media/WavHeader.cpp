// Writes and reads the header: four-letter words and little-endian numbers.
#include "host/media/WavHeader.h"

namespace velorin::host {

namespace {

constexpr std::size_t lengthOfAll = 4; ///< its offset

void append(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < count; ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return number;
}

bool isKnown(const WavFormat& format) {
    constexpr int mostHz = 1'000'000; // far above every rate that is recorded
    return format.rateHz > 0 && format.rateHz <= mostHz &&
           (format.bits == 8 || format.bits == 16) &&
           (format.channels == 1 || format.channels == 2);
}

} // namespace

std::string WavHeader::bytes() const {
    std::string header = "RIFF";
    append(header, dataBytes + size - 8, 4);
    header += "WAVEfmt ";
    append(header, 16, 4);
    append(header, 1, 2); // plain samples
    append(header, static_cast<std::uint32_t>(format.channels), 2);
    append(header, static_cast<std::uint32_t>(format.rateHz), 4);
    append(header, static_cast<std::uint32_t>(format.bytesPerSecond()), 4);
    append(header, static_cast<std::uint32_t>(format.alignment()), 2);
    append(header, static_cast<std::uint32_t>(format.bits), 2);
    header += "data";
    append(header, dataBytes, 4);
    return header;
}

// The fields that are read are written again, and the result is compared with the bytes. The length
// of the whole file is ignored: a power cut may have left half of a new header.
std::optional<WavHeader> WavHeader::read(std::string_view bytes) {
    if (bytes.size() < size)
        return std::nullopt;
    WavHeader header;
    header.format.channels = static_cast<int>(numberAt(bytes, 22, 2));
    header.format.rateHz = static_cast<int>(numberAt(bytes, 24, 4));
    header.format.bits = static_cast<int>(numberAt(bytes, 34, 2));
    header.dataBytes = numberAt(bytes, 40, 4);
    if (!isKnown(header.format)) // its products could overflow
        return std::nullopt;
    std::string same = header.bytes();
    same.replace(lengthOfAll, 4, bytes.substr(lengthOfAll, 4));
    if (same != bytes.substr(0, size))
        return std::nullopt;
    return header;
}

} // namespace velorin::host

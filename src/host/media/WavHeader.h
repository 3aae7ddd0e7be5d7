// The 44 bytes before the samples of a WAV file, in one of the program's recording formats.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velorin::host {

struct WavFormat {
    int rateHz = 44100;
    int bits = 16;    ///< 8 (unsigned) or 16 (signed)
    int channels = 2; ///< 1 or 2

    [[nodiscard]] int alignment() const { return bits * channels / 8; } ///< bytes of a frame
    [[nodiscard]] int bytesPerSecond() const { return alignment() * rateHz; }
};

/// The sample format, and how many bytes of samples follow.
struct WavHeader {
    WavFormat format;
    std::uint32_t dataBytes = 0;

    static constexpr std::uint32_t size = 44;
    /// Lengths in the header have 32 bits, and one of them includes most of the header.
    static constexpr std::int64_t mostDataBytes = 0xFFFFFFFFLL - size;

    [[nodiscard]] std::string bytes() const;

    /// No value unless the first 44 bytes are such a header. Their length of the whole file is
    /// ignored.
    [[nodiscard]] static std::optional<WavHeader> read(std::string_view bytes);
};

} // namespace velorin::host

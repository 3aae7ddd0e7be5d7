// The MP3 encoder library: the four calls that the program uses.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace platform {

/// The library's configuration record, byte for byte; its numbers are little-endian.
using ConfigRecord = std::array<std::uint8_t, 332>;

using EncoderStream = std::uint32_t;

// What every call returns.
constexpr std::uint32_t encoderSuccess = 0;
constexpr std::uint32_t encoderInvalidFormat = 1;
constexpr std::uint32_t encoderInvalidParameters = 2;
constexpr std::uint32_t encoderNoMoreHandles = 3;
constexpr std::uint32_t encoderInvalidHandle = 4;
constexpr std::uint32_t encoderBufferTooSmall = 5;

/// Bound at run time, so a host without the library has everything else.
class Encoder {
public:
    virtual ~Encoder() = default;

    /// True if the library exists under this name ("<folder>\lame_enc.dll"). The host looks for its
    /// own form of the library: in the system's library folders if the folder is called "System32"
    /// or "System", else beside the program. The calls below use the one found last.
    [[nodiscard]] virtual bool isPresent(const std::string& path) = 0;

    /// Begins an encoding. Sets the number of samples (16 bit, over all channels) that a chunk
    /// should have, the size in bytes of an output buffer, and the stream's number. On failure they
    /// stay as they are.
    virtual std::uint32_t beInitStream(const ConfigRecord& config, std::uint32_t& samples,
                                       std::uint32_t& outputSize, EncoderStream& stream) = 0;

    /// Encodes `sampleCount` samples, at most as many as `beInitStream` returned, with the channels
    /// interleaved. `bytes` gets the count of bytes written to `output`, which may be 0.
    virtual std::uint32_t beEncodeChunk(EncoderStream stream, std::uint32_t sampleCount,
                                        const std::int16_t* input, std::uint8_t* output,
                                        std::uint32_t& bytes) = 0;

    /// Writes what the encoder still holds back.
    virtual std::uint32_t beDeinitStream(EncoderStream stream, std::uint8_t* output,
                                         std::uint32_t& bytes) = 0;

    virtual std::uint32_t beCloseStream(EncoderStream stream) = 0;
};

} // namespace platform

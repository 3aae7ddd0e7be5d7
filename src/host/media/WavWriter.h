// A WAV file that grows while sound comes in, in one of the program's recording formats.
#pragma once

#include "host/media/Resampler.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <vector>

namespace velorin::host {

struct WavFormat {
    int rateHz = 44100;
    int bits = 16;    ///< 8 (unsigned) or 16 (signed)
    int channels = 2; ///< 1 or 2

    [[nodiscard]] int alignment() const { return bits * channels / 8; }
    [[nodiscard]] int bytesPerSecond() const { return alignment() * rateHz; }
};

/// A header of 44 bytes, then the samples. Takes sound as a stream of floats at full scale 1.0:
///
///     one channel     the mean of both sides
///     16 bit          32768 times the sample, to the nearest whole number, halves to even,
///                     kept inside [-32768, 32767]
///     8 bit           128 more than 128 times the sample, in the same way, kept inside [0, 255]
///
/// What was 16 bit before it was mixed at full level thus comes back bit for bit.
class WavWriter {
public:
    WavWriter(const std::filesystem::path& path, const WavFormat& format, int streamHz);

    /// Left and right in turn. Writes nothing more after the first failure, or when the file is as
    /// long as a WAV file can be.
    void write(std::span<const float> stereo);

    /// Writes what is held back, and the lengths into the header. Returns whether the whole file is
    /// on its way to the disk.
    [[nodiscard]] bool finish();

    [[nodiscard]] bool failed() const { return failed_ || !file_.good(); }
    [[nodiscard]] std::int64_t frames() const { return frames_; }

private:
    void put(std::span<const float> stereo);
    void writeHeader();

    WavFormat format_;
    Resampler resampler_;
    std::ofstream file_;
    std::int64_t frames_ = 0;
    bool failed_ = false;
    std::vector<float> resampled_;
    std::vector<char> bytes_;
};

} // namespace velorin::host

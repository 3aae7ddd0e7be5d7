// Writes a WAV file while it is recorded, in one of the program's recording formats.
#pragma once

#include "host/media/Resampler.h"
#include "host/media/WavHeader.h"

#include <cstdint>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace velorin::host {

/// A header of 44 bytes, then the samples. The input is a stream of floats at full scale 1.0:
///
///     one channel     the mean of both sides
///     16 bit          32768 times the sample, to the nearest whole number, halves to even,
///                     kept inside [-32768, 32767]
///     8 bit           128 more than 128 times the sample, in the same way, kept inside [0, 255]
///
/// So 16-bit sound that was mixed at full level comes back bit for bit.
class WavWriter {
public:
    /// `file`: the descriptor of a new file, open for writing; the caller closes it. Writes a
    /// header at once, so that the file can be read if it is cut short.
    WavWriter(int file, const WavFormat& format, int streamHz,
              std::int64_t mostDataBytes = WavHeader::mostDataBytes);

    /// Left and right interleaved. After a first failure nothing more is written; what fitted
    /// before it stays.
    void write(std::span<const float> stereo);

    /// Writes what is held back, completes the header, and syncs the file. After an earlier
    /// failure, the file is cut after its last whole frame.
    void finish();

    /// The first failure; `file_too_large` also if a WAV file cannot be longer. If there is none
    /// after `finish`, everything is on the disk.
    [[nodiscard]] const std::error_code& error() const { return error_; }

    [[nodiscard]] std::int64_t frames() const { return dataBytes_ / format_.alignment(); }
    [[nodiscard]] double seconds() const { return static_cast<double>(frames()) / format_.rateHz; }

private:
    void put(std::span<const float> stereo);
    void append(const std::string& bytes);
    void cutToWholeFrames();
    void beginWriteback();
    void fail(int number);

    int file_;
    WavFormat format_;
    Resampler resampler_;
    std::int64_t mostDataBytes_;
    std::int64_t length_ = 0;    ///< bytes in the file
    std::int64_t dataBytes_ = 0; ///< of whole frames
    std::int64_t handedOn_ = 0;  ///< bytes whose writeback has begun
    std::error_code error_;
    std::vector<float> resampled_;
    std::string bytes_;
};

} // namespace velorin::host

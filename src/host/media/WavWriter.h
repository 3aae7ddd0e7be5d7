// A WAV file that grows while sound comes in, in one of the program's recording formats.
#pragma once

#include "host/media/Resampler.h"
#include "host/media/WavHeader.h"

#include <cstdint>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace velorin::host {

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
    /// `file`: the descriptor of a new file, open for writing; the caller closes it. The file has a
    /// header from now on, which says how its samples are to be read if it is cut short.
    WavWriter(int file, const WavFormat& format, int streamHz,
              std::int64_t mostDataBytes = WavHeader::mostDataBytes);

    /// Left and right in turn. Keeps what fits before a first failure, and writes nothing after it.
    void write(std::span<const float> stereo);

    /// Writes what is held back, and the lengths of what is there into the header, and waits until
    /// the disk has it. After a failure before this, the file is as long as its last whole frame.
    void finish();

    /// The first failure; `file_too_large` also if a WAV file cannot be longer. None in the end:
    /// all that was written is on the disk.
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
    std::int64_t handedOn_ = 0;  ///< bytes that the system has been asked to write back
    std::error_code error_;
    std::vector<float> resampled_;
    std::string bytes_;
};

} // namespace velorin::host

// Rounds samples to their format and writes them with the system's own calls, which return how much
// fitted on a full disk.
#include "host/media/WavWriter.h"

#include "host/disk/DurableFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace velorin::host {

namespace {

void appendSample(std::string& bytes, float sample, int bits) {
    if (bits == 8) {
        const float value = std::clamp(std::nearbyint(sample * 128.0F) + 128.0F, 0.0F, 255.0F);
        bytes += static_cast<char>(static_cast<unsigned char>(value));
        return;
    }
    const float value = std::clamp(std::nearbyint(sample * 32768.0F), -32768.0F, 32767.0F);
    const auto number = static_cast<std::uint32_t>(static_cast<std::int32_t>(value));
    bytes += static_cast<char>(number);
    bytes += static_cast<char>(number >> 8);
}

} // namespace

WavWriter::WavWriter(int file, const WavFormat& format, int streamHz, std::int64_t mostDataBytes)
    : file_(file),
      format_(format),
      resampler_(streamHz, format.rateHz),
      mostDataBytes_(mostDataBytes) {
    append(WavHeader{format_, 0}.bytes());
}

void WavWriter::fail(int number) {
    if (!error_)
        error_ = {number, std::generic_category()};
}

void WavWriter::append(const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size() && !error_) {
        const ssize_t written = ::write(file_, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(written < 0 ? errno : ENOSPC);
        else
            done += static_cast<std::size_t>(written);
    }
    length_ += static_cast<std::int64_t>(done);
    const std::int64_t samples = std::max<std::int64_t>(length_ - WavHeader::size, 0);
    dataBytes_ = samples - samples % format_.alignment();
}

void WavWriter::write(std::span<const float> stereo) {
    resampled_.clear();
    resampler_.process(stereo, resampled_);
    put(resampled_);
}

void WavWriter::put(std::span<const float> stereo) {
    const std::int64_t room = mostDataBytes_ / format_.alignment() - frames();
    const auto all = static_cast<std::int64_t>(stereo.size() / 2);
    const std::int64_t count = std::min(all, room);
    if (error_)
        return;
    bytes_.clear();
    for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(count); i += 2) {
        if (format_.channels == 1) {
            appendSample(bytes_, (stereo[i] + stereo[i + 1]) * 0.5F, format_.bits);
            continue;
        }
        appendSample(bytes_, stereo[i], format_.bits);
        appendSample(bytes_, stereo[i + 1], format_.bits);
    }
    append(bytes_);
    if (count < all)
        fail(EFBIG);
    beginWriteback();
}

// A long recording would otherwise be in memory alone, and the end would wait for all of it. This
// only begins the writing; a disk that is busy holds nobody up.
void WavWriter::beginWriteback() {
    constexpr std::int64_t enough = 1 << 22;
    if (length_ - handedOn_ < enough)
        return;
    (void)sync_file_range(file_, handedOn_, length_ - handedOn_, SYNC_FILE_RANGE_WRITE);
    handedOn_ = length_;
}

void WavWriter::finish() {
    resampled_.clear();
    resampler_.flush(resampled_);
    put(resampled_);
    if (error_)
        cutToWholeFrames();
    // The byte that makes the data even in length, which every chunk of such a file is.
    else if (dataBytes_ % 2 != 0 && ::write(file_, "", 1) != 1) {
        fail(errno);
        cutToWholeFrames();
    }
    const std::string header = WavHeader{format_, static_cast<std::uint32_t>(dataBytes_)}.bytes();
    if (length_ >= WavHeader::size &&
        pwrite(file_, header.data(), header.size(), 0) != static_cast<ssize_t>(header.size()))
        fail(errno);
    if (fsync(file_) != 0 && errno != EINVAL) // which says that this file has no disk behind it
        fail(errno);
}

void WavWriter::cutToWholeFrames() {
    dataBytes_ -= dataBytes_ % 2;
    if (length_ >= WavHeader::size && ftruncate(file_, WavHeader::size + dataBytes_) != 0)
        fail(errno);
}

} // namespace velorin::host

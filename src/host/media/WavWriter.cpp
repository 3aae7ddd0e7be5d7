// The header, and samples rounded into their form.
#include "host/media/WavWriter.h"

#include <algorithm>
#include <cmath>

namespace velorin::host {

namespace {

constexpr std::uint32_t headerBytes = 44;
constexpr std::int64_t mostDataBytes = 0xFFFFFFFFLL - headerBytes;

void append(std::vector<char>& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>(number >> (8 * i)));
}

void append(std::vector<char>& bytes, const char* word) {
    bytes.insert(bytes.end(), word, word + 4);
}

void appendSample(std::vector<char>& bytes, float sample, int bits) {
    if (bits == 8) {
        const float value = std::clamp(std::nearbyint(sample * 128.0F) + 128.0F, 0.0F, 255.0F);
        append(bytes, static_cast<std::uint32_t>(value), 1);
        return;
    }
    const float value = std::clamp(std::nearbyint(sample * 32768.0F), -32768.0F, 32767.0F);
    append(bytes, static_cast<std::uint32_t>(static_cast<std::int32_t>(value)), 2);
}

} // namespace

WavWriter::WavWriter(const std::filesystem::path& path, const WavFormat& format, int streamHz)
    : format_(format),
      resampler_(streamHz, format.rateHz),
      file_(path, std::ios::binary | std::ios::trunc) {
    writeHeader();
}

void WavWriter::writeHeader() {
    const auto dataBytes = static_cast<std::uint32_t>(frames_ * format_.alignment());
    std::vector<char> header;
    append(header, "RIFF");
    append(header, dataBytes + headerBytes - 8, 4);
    append(header, "WAVE");
    append(header, "fmt ");
    append(header, 16, 4);
    append(header, 1, 2); // plain samples
    append(header, static_cast<std::uint32_t>(format_.channels), 2);
    append(header, static_cast<std::uint32_t>(format_.rateHz), 4);
    append(header, static_cast<std::uint32_t>(format_.bytesPerSecond()), 4);
    append(header, static_cast<std::uint32_t>(format_.alignment()), 2);
    append(header, static_cast<std::uint32_t>(format_.bits), 2);
    append(header, "data");
    append(header, dataBytes, 4);
    file_.write(header.data(), static_cast<std::streamsize>(header.size()));
}

void WavWriter::write(std::span<const float> stereo) {
    resampled_.clear();
    resampler_.process(stereo, resampled_);
    put(resampled_);
}

void WavWriter::put(std::span<const float> stereo) {
    const std::int64_t room = mostDataBytes / format_.alignment() - frames_;
    const auto frames = std::min(static_cast<std::int64_t>(stereo.size() / 2), room);
    if (failed() || frames <= 0)
        return;
    bytes_.clear();
    for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(frames); i += 2) {
        if (format_.channels == 1) {
            appendSample(bytes_, (stereo[i] + stereo[i + 1]) * 0.5F, format_.bits);
            continue;
        }
        appendSample(bytes_, stereo[i], format_.bits);
        appendSample(bytes_, stereo[i + 1], format_.bits);
    }
    file_.write(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
    failed_ = !file_.good();
    frames_ += failed_ ? 0 : frames;
}

bool WavWriter::finish() {
    resampled_.clear();
    resampler_.flush(resampled_);
    put(resampled_);
    // The byte that makes the data even in length, which every chunk of such a file is.
    if (frames_ * format_.alignment() % 2 != 0)
        file_.put(0);
    file_.seekp(0);
    writeHeader();
    file_.close();
    return !failed_ && file_.good();
}

} // namespace velorin::host

// A file that takes sound: what every rendering writes to.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace velorin::convert {

struct SoundParameters {
    int rateHz = 44100;
    int channels = 2;  ///< of the file; what is written to it is always stereo
    int bitrate = 192; ///< kilobits per second of an MP3 file
    int quality = -1;  ///< of an MP3 file, 0 (best) to 9 (fastest); -1: the encoder's own choice
};

class SoundTarget {
public:
    virtual ~SoundTarget() = default;

    /// Takes `frames` frames, left and right in turn; false if they could not be written, or if
    /// an earlier write failed.
    virtual bool write(const std::int16_t* stereo, int frames) = 0;

    /// Writes the rest. Returns why the file is not whole; empty if it is.
    [[nodiscard]] virtual std::string finish() = 0;

    /// Why a write failed.
    [[nodiscard]] virtual std::string whyFailed() const = 0;
};

constexpr std::int64_t mostWavFrames = (0xFFFFFFFFLL - 1024) / 4; ///< what a header can say

// 16 bit stereo, up to `mostWavFrames`. Null if the file cannot be made, with the reason in
// `reason`.
[[nodiscard]] std::unique_ptr<SoundTarget>
makeWav(const std::filesystem::path& path, const SoundParameters& parameters, std::string& reason);

} // namespace velorin::convert

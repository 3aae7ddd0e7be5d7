// A sound file that a rendering writes to.
#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace velorin::convert {

struct SoundParameters {
    int rateHz = 44100;
    int channels = 2;  ///< of the file; `write` always takes stereo
    int bitrate = 192; ///< kilobits per second of an MP3 file
    int quality =
        -1; ///< of an MP3 file, 0 (best) to 9 (fastest); -1 for the default of the encoder
};

class SoundTarget {
public:
    virtual ~SoundTarget() = default;

    /// Writes `frames` frames, left and right in turn. Returns false if this write or an earlier
    /// one failed.
    virtual bool write(const std::int16_t* stereo, int frames) = 0;

    /// Writes the rest. Fails if the file is not complete.
    virtual platform::Result<void> finish() = 0;

    /// Why a write failed.
    [[nodiscard]] virtual std::string failureReason() const = 0;
};

constexpr std::int64_t maxWavFrames = (0xFFFFFFFFLL - 1024) / 4; ///< the limit of the header

using MadeTarget = platform::Result<std::unique_ptr<SoundTarget>>;

/// 16 bit stereo, up to `maxWavFrames`. Fails if the file cannot be created.
MadeTarget makeWav(const std::filesystem::path& path, const SoundParameters& parameters);

} // namespace velorin::convert

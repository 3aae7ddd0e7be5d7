// A sound file that is read from beginning to end, or from anywhere.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velorin::host {

/// For one thread at a time.
class SoundReader {
public:
    virtual ~SoundReader() = default;

    [[nodiscard]] virtual int rateHz() const = 0; ///< [1000, 384000]
    [[nodiscard]] virtual int channels() const = 0;

    /// Frames in all. A damaged file may have fewer to give.
    [[nodiscard]] virtual std::int64_t frames() const = 0;

    /// Writes up to `frames` frames, left and right in turn, full scale at 1.0, and returns how
    /// many; 0 at the end or at damage. One channel goes to both sides; of more than two the first
    /// two are taken.
    virtual int read(float* stereo, int frames) = 0;

    /// The next frame to be read; false if the file cannot go there.
    virtual bool seek(std::int64_t frame) = 0;
};

// Null for what is no regular file, or not of that kind, or of a rate that nobody uses.
[[nodiscard]] std::unique_ptr<SoundReader> openWav(const std::filesystem::path& path);
[[nodiscard]] std::unique_ptr<SoundReader> openMp3(const std::filesystem::path& path);

constexpr int lowestRateHz = 1000;
constexpr int highestRateHz = 384'000;

} // namespace velorin::host

// Reads a sound file, from any position.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace velorin::host {

/// For one thread at a time.
class SoundReader {
public:
    virtual ~SoundReader() = default;

    [[nodiscard]] virtual int rateHz() const = 0; ///< [1000, 384000]
    [[nodiscard]] virtual int channels() const = 0;

    /// Frames in all. `read` may return fewer for a damaged file.
    [[nodiscard]] virtual std::int64_t frames() const = 0;

    /// Writes up to `frames` frames, left and right interleaved, full scale at 1.0, and returns how
    /// many; 0 at the end or at damage. One channel goes to both sides; of more than two the first
    /// two are used.
    [[nodiscard]] virtual int read(float* stereo, int frames) = 0;

    /// The same with 16 bits, rounded and clipped. The samples of a WAV file of 16 bits are copied.
    [[nodiscard]] virtual int readRounded(std::int16_t* stereo, int frames);

    /// Sets the next frame to be read. False if the file cannot seek there.
    [[nodiscard]] virtual bool seek(std::int64_t frame) = 0;

private:
    std::vector<float> unrounded_;
};

// Null if the file is no regular file, not of that kind, or its rate is out of range.
[[nodiscard]] std::unique_ptr<SoundReader> openWav(const std::filesystem::path& path);
[[nodiscard]] std::unique_ptr<SoundReader> openMp3(const std::filesystem::path& path);

constexpr int lowestRateHz = 1000;
constexpr int highestRateHz = 384'000;

} // namespace velorin::host

// Helpers for sound tests: a SoundFont, a stream pulled by hand, and measurements of what sounds.
#pragma once

#include "host/engine/SoundEngine.h"
#include "host/engine/SoundTap.h"
#include "host/synth/SoundFonts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace velorin::host::test {

inline std::filesystem::path anySoundFont() {
    const auto fonts = findSoundFonts(soundFontFolders("", ""));
    EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
    return fonts.empty() ? std::filesystem::path() : fonts.front().path;
}

/// Writes to a tap as the stream's thread does.
inline void writeAsStream(SoundTap& tap, const TappedBlock& block) {
    const StreamThreadScope scope;
    tap.write(block);
}

constexpr std::int64_t msNs = 1'000'000;

/// Pulls a stream like a sound card, with a clock that is moved by hand.
class HandPulled {
public:
    explicit HandPulled(SoundEngine& engine) : engine_(engine) {}

    /// Moves the clock on by the time of `frames` frames and appends them to `stereo`.
    void pull(int frames) {
        const std::size_t before = stereo.size();
        stereo.resize(before + 2 * static_cast<std::size_t>(frames));
        engine_.pull(stereo.data() + before, frames, nowNs());
        frames_ += frames;
    }

    [[nodiscard]] std::int64_t nowNs() const { return startNs + frames_ * 1'000'000'000 / 44100; }

    static constexpr std::int64_t startNs = 5'000'000'000;
    std::vector<float> stereo;

private:
    SoundEngine& engine_;
    std::int64_t frames_ = 0;
};

/// The first frame from `from` on that is louder than `level` on the left; -1 if there is none.
inline std::int64_t onsetAfter(const std::vector<float>& stereo, std::int64_t from, float level) {
    for (std::size_t i = 2 * static_cast<std::size_t>(from); i < stereo.size(); i += 2) {
        if (std::abs(stereo[i]) > level)
            return static_cast<std::int64_t>(i / 2);
    }
    return -1;
}

/// How strong a frequency is on the left in [from, from + frames).
inline double strengthOf(double hz, const std::vector<float>& stereo, std::size_t from,
                         std::size_t frames) {
    double real = 0.0;
    double imaginary = 0.0;
    for (std::size_t i = 0; i < frames; ++i) {
        const double phase = 2.0 * M_PI * hz * static_cast<double>(i) / 44100.0;
        real += std::cos(phase) * stereo[2 * (from + i)];
        imaginary += std::sin(phase) * stereo[2 * (from + i)];
    }
    return std::hypot(real, imaginary) / static_cast<double>(frames);
}

} // namespace velorin::host::test

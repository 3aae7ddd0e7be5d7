// Rounding samples to 16 bits.
#include "host/media/SoundReader.h"

#include <algorithm>
#include <cmath>

namespace velorin::host {

namespace {

std::int16_t rounded(float sample) {
    return static_cast<std::int16_t>(
        std::lrintf(std::clamp(sample * 32768.0F, -32768.0F, 32767.0F)));
}

} // namespace

int SoundReader::readRounded(std::int16_t* stereo, int frames) {
    unrounded_.resize(2 * static_cast<std::size_t>(frames));
    const int got = read(unrounded_.data(), frames);
    std::transform(unrounded_.begin(), unrounded_.begin() + 2 * std::ptrdiff_t{got}, stereo,
                   rounded);
    return got;
}

} // namespace velorin::host

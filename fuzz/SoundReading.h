// Reads a sound file as the player and the converter do: in blocks to the end, and from a position
// inside.
#pragma once

#include "Expect.h"
#include "host/media/SoundReader.h"

#include <cmath>

/// Reads at most about 100,000 frames: a few bytes can announce hours of sound.
inline void readSound(velorin::host::SoundReader& reader) {
    constexpr int frames = 1024;
    float stereo[2 * frames];
    const auto readBlock = [&] {
        const int got = reader.read(stereo, frames);
        expect(got >= 0 && got <= frames);
        for (int i = 0; i < 2 * got; ++i)
            expect(std::isfinite(stereo[i]));
        return got > 0;
    };
    expect(reader.frames() >= 0);
    expect(reader.rateHz() >= velorin::host::lowestRateHz);
    expect(reader.rateHz() <= velorin::host::highestRateHz);
    for (int block = 0; block < 100 && readBlock(); ++block) {
    }
    if (reader.seek(reader.frames() / 2))
        readBlock();
}

// The length of a sound and the size of its file.
#pragma once

#include "platform/Result.h"

#include <string>

namespace velorin::convert {

struct SoundLength {
    double seconds = 0.0;
    int rateHz = 44100; ///< of a WAV file, which has 16 bits and two channels
    int bitrate = 0;    ///< kilobits per second of an MP3 file; 0 for a WAV file
};

/// Hours, minutes, seconds and megabytes: "1:02:03 of sound, 657 MB".
[[nodiscard]] std::string lengthText(const SoundLength& length);

/// True from ten minutes on, which take some time and disk space.
[[nodiscard]] bool needsWarning(const SoundLength& length);

/// Fails if it is longer than `maxMinutes`, or than a WAV file can be.
platform::Result<void> checkLength(const SoundLength& length, int maxMinutes);

/// The same for a MIDI file, which is small at any length.
platform::Result<void> checkPlayingTime(double seconds, int maxMinutes);

} // namespace velorin::convert

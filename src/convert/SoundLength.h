// How long a sound will be, and how large its file.
#pragma once

#include <string>

namespace velorin::convert {

struct SoundLength {
    double seconds = 0.0;
    int rateHz = 44100; ///< of a WAV file, which has 16 bits and two channels
    int bitrate = 0;    ///< kilobits per second of an MP3 file; 0: it is a WAV file
};

/// Hours, minutes, seconds and megabytes: "1:02:03 of sound, 657 MB".
[[nodiscard]] std::string described(const SoundLength& length);

/// True for what takes long enough, and room enough, that the user should know before.
[[nodiscard]] bool isWorthARemark(const SoundLength& length);

/// Why it is not made: it is longer than so many minutes, or than a WAV file can be. Empty if it
/// is.
[[nodiscard]] std::string whyTooLong(const SoundLength& length, int mostMinutes);

} // namespace velorin::convert

// How an MP3 of the encoder sounds, compared with its WAV.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace velorin {

struct EncoderChoice;

/// What the header of a WAV file says of its samples.
struct WavHead {
    int samplesPerSecond = 0;
    int bits = 0;
    int channels = 0;
};

/// Reads the 44 bytes before the samples. No value if they are no header of PCM samples, or name no
/// samples.
[[nodiscard]] std::optional<WavHead> readWavHead(const std::array<char, 44>& bytes);

/// What is wrong with an MP3, in a few plain words: "Half speed, an octave too low."; empty if it
/// has the speed and the pitch of the WAV. The encoder takes every two bytes for a sample and gets
/// the rate and the channels from `choice`, not from the file.
[[nodiscard]] std::string flawOfMp3(const WavHead& wav, const EncoderChoice& choice);

} // namespace velorin

// Compares what the samples of a WAV are with what the encoder takes them for.
#include "recording/Mp3Sound.h"

#include "recording/EncoderConfig.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace velorin {

namespace {

constexpr int encoderBits = 16;
constexpr std::int32_t monoMode = 3;
constexpr double octave = 2.0;
constexpr double asGood = 0.03; ///< half a semitone: nobody hears less without a comparison
constexpr double clear = 0.15;  ///< from here on it is more than a little

int number(const std::array<char, 44>& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + i));
    return static_cast<int>(value);
}

bool isNear(double value, double wanted) {
    return std::fabs(value / wanted - 1.0) < asGood;
}

} // namespace

std::optional<WavHead> readWavHead(const std::array<char, 44>& bytes) {
    const std::string_view text(bytes.data(), bytes.size());
    constexpr int pcm = 1;
    if (text.substr(0, 4) != "RIFF" || text.substr(8, 8) != "WAVEfmt " ||
        number(bytes, 20, 2) != pcm)
        return std::nullopt;
    const WavHead head{number(bytes, 24, 4), number(bytes, 34, 2), number(bytes, 22, 2)};
    if (head.samplesPerSecond <= 0 || head.bits <= 0 || head.channels <= 0)
        return std::nullopt;
    return head;
}

std::string flawOfMp3(const WavHead& wav, const EncoderChoice& choice) {
    if (wav.bits != encoderBits)
        return "It is noise.";
    const double given = static_cast<double>(wav.samplesPerSecond) * wav.channels;
    const int channels = choice.mode == monoMode ? 1 : 2;
    const double speed = static_cast<double>(choice.sampleRate) * channels / given;
    if (isNear(speed, 1.0))
        return {};
    if (isNear(speed, 1.0 / octave))
        return "Half speed, an octave too low.";
    if (isNear(speed, octave))
        return "Double speed, an octave too high.";
    const bool isLittle = std::fabs(speed - 1.0) < clear;
    if (speed < 1.0)
        return isLittle ? "A little too slow and too low." : "Too slow and too low.";
    return isLittle ? "A little too fast and too high." : "Too fast and too high.";
}

} // namespace velorin

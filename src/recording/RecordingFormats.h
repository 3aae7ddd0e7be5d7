// The tables of recording and encoding: WAV formats, the encoder's input for each, bitrates and
// qualities.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace velorin {

/// A row of `cbxFormat`. Its text decides how a recording is made.
struct WavFormat {
    std::string_view row;
    int samplesPerSecond;
    int bits;
    int channels;
};

inline constexpr std::array<WavFormat, 9> wavFormats{{
    {"22.050Hz, 8bit Mono, 21k/sec", 22050, 8, 1},
    {"22.050Hz, 8bit Stereo, 43k/sec", 22050, 8, 2},
    {"22.050Hz, 16bit Mono, 43k/sec", 22050, 16, 1},
    {"22.050Hz, 16bit Stereo, 86k/sec", 22050, 16, 2},
    {"44.100Hz, 8bit Mono, 43k/sec", 44100, 8, 1},
    {"44.100Hz, 8bit Stereo, 86k/sec", 44100, 8, 2},
    {"44.100Hz, 16bit Mono, 86k/sec", 44100, 16, 1},
    {"44.100Hz, 16bit Stereo, 172k/sec", 44100, 16, 2},
    {"48.000Hz, 16bit Stereo, 192k/sec", 48000, 16, 2},
}};

/// The row that is selected whenever the window is loaded.
constexpr int startWavFormat = 7;

/// The encoder's input format for an index of `cbxFormat`.
struct EncoderInput {
    std::int32_t sampleRate; ///< per second
    std::int32_t mode;       ///< 1 joint stereo, 3 mono
};

/// Rule: the values do not match the rows of `wavFormats`, so an MP3 sounds like its recording for
/// some formats only; the default format is encoded as mono. The last entry has no row. Held by
/// recording/a_recording.
inline constexpr std::array<EncoderInput, 10> encoderInputs{{
    {22050, 1},
    {22050, 3},
    {22050, 1},
    {44100, 3},
    {44100, 1},
    {44100, 3},
    {44100, 1},
    {44100, 3},
    {44100, 1},
    {48000, 1},
}};

/// The rows of `Combo4`, kilobits per second.
inline constexpr std::array<std::string_view, 14> mp3Bitrates{
    "32", "40", "48", "56", "64", "80", "96", "112", "128", "160", "192", "224", "256", "320"};

struct Mp3Quality {
    std::string_view row;
    std::int32_t preset; ///< the library's number
};

/// The rows of `Combo3`.
inline constexpr std::array<Mp3Quality, 10> mp3Qualities{{
    {"Low", 1},
    {"Normal", 0},
    {"High", 2},
    {"Voice", 3},
    {"Phone", 1000},
    {"Radio", 6000},
    {"Tape", 7000},
    {"Hifi", 8000},
    {"CD", 9000},
    {"Studio", 10000},
}};

} // namespace velorin

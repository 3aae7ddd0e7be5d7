// Reading WAV files with unusual chunks, formats and samples.
#include "host/media/SoundReader.h"
#include "host/media/WavChunks.h"
#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <limits>
#include <vector>

namespace velorin::host::test {

namespace {

void append(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

/// A file of one channel at 44,100 Hz with 32-bit floating-point samples.
std::filesystem::path floatWav(const std::filesystem::path& folder,
                               const std::vector<float>& samples) {
    const auto dataBytes = static_cast<std::uint32_t>(samples.size() * sizeof(float));
    std::string bytes = "RIFF";
    append(bytes, 36 + dataBytes, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);
    append(bytes, 3, 2); // floating point
    append(bytes, 1, 2);
    append(bytes, 44100, 4);
    append(bytes, 44100 * 4, 4);
    append(bytes, 4, 2);
    append(bytes, 32, 2);
    bytes += "data";
    append(bytes, dataBytes, 4);
    const std::size_t head = bytes.size();
    bytes.resize(head + dataBytes);
    std::memcpy(bytes.data() + head, samples.data(), dataBytes);
    std::ofstream(folder / "float.wav", std::ios::binary) << bytes;
    return folder / "float.wav";
}

std::string chunk(const std::string& name, const std::string& content) {
    std::string bytes = name;
    append(bytes, static_cast<std::uint32_t>(content.size()), 4);
    return bytes + content;
}

std::string format(int form, int channels, int bits) {
    std::string bytes;
    append(bytes, static_cast<std::uint32_t>(form), 2);
    append(bytes, static_cast<std::uint32_t>(channels), 2);
    append(bytes, 8000, 4);
    append(bytes, static_cast<std::uint32_t>(8000 * channels * bits / 8), 4);
    append(bytes, static_cast<std::uint32_t>(channels * bits / 8), 2);
    append(bytes, static_cast<std::uint32_t>(bits), 2);
    return chunk("fmt ", bytes);
}

std::filesystem::path writeWav(const std::filesystem::path& folder, const std::string& chunks) {
    std::ofstream(folder / "a.wav", std::ios::binary) << chunk("RIFF", "WAVE" + chunks);
    return folder / "a.wav";
}

/// 256 samples of 16 bits: 0, 128, 256, ...
std::string ramp() {
    std::string bytes;
    for (std::uint32_t i = 0; i < 256; ++i)
        append(bytes, 128 * i, 2);
    return chunk("data", bytes);
}

std::vector<float> leftOf(SoundReader& wav) {
    std::vector<float> stereo(2 * 1000);
    const int frames = wav.read(stereo.data(), 1000);
    std::vector<float> left;
    for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i)
        left.push_back(stereo[2 * i]);
    return left;
}

std::string whyNot(const std::filesystem::path& path) {
    EXPECT_EQ(openWav(path), nullptr);
    return unreadableReason(readWavChunks(path));
}

/// All frames, left and right interleaved.
std::vector<std::int16_t> roundedSamples(SoundReader& wav) {
    std::vector<std::int16_t> stereo(2 * 100);
    stereo.resize(2 * static_cast<std::size_t>(wav.readRounded(stereo.data(), 100)));
    return stereo;
}

/// Samples of 16 bits in a chunk.
std::string data(const std::vector<int>& samples) {
    std::string bytes;
    for (const int sample : samples)
        append(bytes, static_cast<std::uint32_t>(sample), 2);
    return chunk("data", bytes);
}

} // namespace

// "note" and "junk" have odd lengths without padding, as some programs write them.
TEST(AWavFile, MayHaveChunksOfOddLengthsWithoutPadding) {
    const scripted::TemporaryFolder folder;
    const std::string plain = format(1, 1, 16);
    for (const std::string& chunks :
         {chunk("junk", "a") + plain + ramp(), plain + chunk("note", "odd") + ramp(),
          chunk("junk", "abc") + plain + chunk("note", "o") + chunk("more", "b") + ramp(),
          chunk("junk", "abc") + '\0' + plain + chunk("note", "o") + ramp()}) {
        const auto wav = openWav(writeWav(folder.path(), chunks));
        ASSERT_NE(wav, nullptr) << chunks.substr(0, 60);
        EXPECT_EQ(wav->frames(), 256);
        const std::vector<float> left = leftOf(*wav);
        ASSERT_EQ(left.size(), 256U);
        EXPECT_EQ(left[255], 255.0F / 256.0F);
        ASSERT_TRUE(wav->seek(128));
        EXPECT_EQ(leftOf(*wav).at(0), 0.5F);
    }
}

TEST(AWavFile, WithNothingButItsSamplesIsReadAsItIs) {
    const scripted::TemporaryFolder folder;
    const auto path = writeWav(folder.path(), format(1, 1, 16) + chunk("fact", "1234") + ramp());
    const auto needed = readWavChunks(path).needed;
    ASSERT_EQ(needed.size(), 1U);
    EXPECT_EQ(needed[0].begin, 0);
    EXPECT_EQ(needed[0].end, static_cast<std::int64_t>(std::filesystem::file_size(path)));
}

// The library looks for ever for the end of such a list, before the samples and behind them. A
// fuzzer found it.
TEST(AWavFile, MayHaveADamagedListOfTexts) {
    const scripted::TemporaryFolder folder;
    const std::string endless = std::string("LISTWAVELIST\3\0\0\0AAVELIST\3\0\0\0AVE\0LIST", 36) +
                                std::string(8, '\xFF') + "\xF7\xFF\xFF\xFF";
    const std::string sound = format(1, 1, 16) + ramp();
    EXPECT_EQ(whyNot(writeWav(folder.path(), endless)), "is no WAV file");
    EXPECT_EQ(whyNot(writeWav(folder.path(), endless + sound)), "is no WAV file");
    const auto wav = openWav(writeWav(folder.path(), sound + endless));
    ASSERT_NE(wav, nullptr);
    EXPECT_EQ(wav->frames(), 256);
    EXPECT_EQ(leftOf(*wav).at(255), 255.0F / 256.0F);
}

TEST(AWavFile, ThatWasCutOffOrNeverClosedIsReadToItsEnd) {
    const scripted::TemporaryFolder folder;
    const std::string whole = chunk("RIFF", "WAVE" + format(1, 1, 16) + ramp());
    std::string endless = whole;
    endless.replace(endless.find("data") + 4, 4, 4, '\xFF');
    std::string unclosed = whole;
    unclosed.replace(4, 4, std::string("\10\0\0\0", 4));
    unclosed.replace(unclosed.find("data") + 4, 4, 4, '\0');
    for (const std::string& bytes : {whole.substr(0, whole.size() - 256), endless, unclosed}) {
        std::ofstream(folder.path() / "a.wav", std::ios::binary) << bytes;
        const auto wav = openWav(folder.path() / "a.wav");
        ASSERT_NE(wav, nullptr);
        const std::size_t expected = bytes.size() == whole.size() ? 256 : 128;
        EXPECT_EQ(wav->frames(), static_cast<std::int64_t>(expected));
        EXPECT_EQ(leftOf(*wav).size(), expected);
    }
}

// "RIFX" has its numbers with the highest byte first.
TEST(AWavFile, MayHaveItsBytesTheOtherWayRound) {
    const scripted::TemporaryFolder folder;
    const std::string format("fmt \0\0\0\20\0\1\0\2\0\0\x1F\x40\0\0\x7D\0\0\4\0\20", 24);
    const std::string sound("data\0\0\0\10\x40\0\xC0\0\0\1\xFF\xFF", 16);
    const std::string list("LIST\0\0\0\3abc\0", 12);
    std::ofstream(folder.path() / "a.wav", std::ios::binary)
        << std::string("RIFX\0\0\0\x38WAVE", 12) + format + list + sound;
    const auto wav = openWav(folder.path() / "a.wav");
    ASSERT_NE(wav, nullptr);
    EXPECT_EQ(wav->rateHz(), 8000);
    EXPECT_EQ(roundedSamples(*wav), (std::vector<std::int16_t>{16384, -16384, 1, -1}));
}

// Only the samples of the length that "ds64" tells are read; a file of 4 GB has no room for it
// elsewhere.
TEST(AWavFile, OfTheLongFormEndsWithTheLongLength) {
    const scripted::TemporaryFolder folder;
    std::string lengths;
    for (const std::uint32_t number : {700U, 0U, 512U, 0U, 256U, 0U, 0U})
        append(lengths, number, 4);
    std::string sound = ramp();
    sound.replace(4, 4, 4, '\xFF');
    const std::string chunks = chunk("ds64", lengths) + format(1, 1, 16) + sound + "LIST\xFF\xFF";
    std::ofstream(folder.path() / "a.wav", std::ios::binary) << "RF64\xFF\xFF\xFF\xFFWAVE" + chunks;
    const auto wav = openWav(folder.path() / "a.wav");
    ASSERT_NE(wav, nullptr);
    EXPECT_EQ(wav->frames(), 256);
    EXPECT_EQ(leftOf(*wav).at(255), 255.0F / 256.0F);
}

TEST(AWavFile, InAnUnsupportedFormatIsReportedByName) {
    const scripted::TemporaryFolder folder;
    const std::string what = "is a WAV file in a form that cannot be read, ";
    EXPECT_EQ(whyNot(writeWav(folder.path(), format(0x45, 1, 4) + ramp())), what + "G.726");
    EXPECT_EQ(whyNot(writeWav(folder.path(), format(0x20, 1, 4) + ramp())), what + "Yamaha ADPCM");
    EXPECT_EQ(whyNot(writeWav(folder.path(), format(0x11, 6, 4) + ramp())),
              what + "IMA ADPCM of 6 channels");
    EXPECT_EQ(whyNot(writeWav(folder.path(), format(0x2000, 2, 16) + ramp())),
              "is a WAV file that is damaged or in a form that cannot be read");
    EXPECT_EQ(whyNot(writeWav(folder.path(), ramp())), "is no WAV file");
    std::ofstream(folder.path() / "text.wav") << "no sound";
    EXPECT_EQ(whyNot(folder.path() / "text.wav"), "is no WAV file");
}

TEST(AWavFile, IsSilentForSamplesThatAreNoNumbers) {
    const scripted::TemporaryFolder folder;
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
    const auto wav = openWav(floatWav(folder.path(), {0.5F, noNumber, infinity, -infinity, -0.5F}));
    ASSERT_NE(wav, nullptr);
    std::vector<float> stereo(2 * 8, 9.0F);
    ASSERT_EQ(wav->read(stereo.data(), 8), 5);
    stereo.resize(2 * 5);
    EXPECT_EQ(stereo, (std::vector<float>{0.5F, 0.5F, 0, 0, 0, 0, 0, 0, -0.5F, -0.5F}));
}

TEST(AWavFile, MayExceedFullScaleWithinBounds) {
    const scripted::TemporaryFolder folder;
    const auto wav = openWav(floatWav(folder.path(), {4.0F, 3e38F, -3e38F}));
    ASSERT_NE(wav, nullptr);
    std::vector<float> stereo(2 * 3);
    ASSERT_EQ(wav->read(stereo.data(), 3), 3);
    EXPECT_EQ(stereo[0], 4.0F);
    EXPECT_EQ(stereo[2], 1000.0F);
    EXPECT_EQ(stereo[4], -1000.0F);
}

TEST(AWavFile, Of16BitsGivesItsOwnSamples) {
    const scripted::TemporaryFolder folder;
    const auto stereo =
        openWav(writeWav(folder.path(), format(1, 2, 16) + data({-32768, 32767, -1, 1, 0, 2})));
    ASSERT_NE(stereo, nullptr);
    EXPECT_EQ(roundedSamples(*stereo), (std::vector<std::int16_t>{-32768, 32767, -1, 1, 0, 2}));
    const auto mono = openWav(writeWav(folder.path(), format(1, 1, 16) + data({-32768, 32767, 5})));
    ASSERT_NE(mono, nullptr);
    EXPECT_EQ(roundedSamples(*mono),
              (std::vector<std::int16_t>{-32768, -32768, 32767, 32767, 5, 5}));
    const auto three =
        openWav(writeWav(folder.path(), format(1, 3, 16) + data({1, 2, 3, 4, 5, 6})));
    ASSERT_NE(three, nullptr);
    EXPECT_EQ(roundedSamples(*three), (std::vector<std::int16_t>{1, 2, 4, 5}));
}

TEST(AWavFile, OfOtherSamplesIsRoundedAndClipped) {
    const scripted::TemporaryFolder folder;
    const auto wav = openWav(floatWav(folder.path(), {1.0F, -2.0F, 0.5F, 10.6F / 32768.0F}));
    ASSERT_NE(wav, nullptr);
    EXPECT_EQ(roundedSamples(*wav),
              (std::vector<std::int16_t>{32767, 32767, -32768, -32768, 16384, 16384, 11, 11}));
}

} // namespace velorin::host::test

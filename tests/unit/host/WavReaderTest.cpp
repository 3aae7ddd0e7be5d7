// Reading WAV files whose samples are not what they should be.
#include "host/media/SoundReader.h"
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

} // namespace

TEST(AWavFile, GivesSilenceForSamplesThatAreNoNumbers) {
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

TEST(AWavFile, MayBeSomewhatOverFullScaleButNotWithoutBounds) {
    const scripted::TemporaryFolder folder;
    const auto wav = openWav(floatWav(folder.path(), {4.0F, 3e38F, -3e38F}));
    ASSERT_NE(wav, nullptr);
    std::vector<float> stereo(2 * 3);
    ASSERT_EQ(wav->read(stereo.data(), 3), 3);
    EXPECT_EQ(stereo[0], 4.0F);
    EXPECT_EQ(stereo[2], 1000.0F);
    EXPECT_EQ(stereo[4], -1000.0F);
}

} // namespace velorin::host::test

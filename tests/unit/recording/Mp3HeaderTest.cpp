// The header of an MP3 frame, read from any four bytes.
#include "recording/Mp3Header.h"

#include <gtest/gtest.h>

#include <array>

namespace velorin {
namespace {

TEST(Mp3Header, OfAnOrdinaryFrameHasRateBitrateAndMode) {
    const Mp3Header header = readMp3Header({0xFF, 0xFB, 0x90, 0x64}); // 44.1 kHz, 128, joint stereo
    EXPECT_EQ(header.khz, "44");
    EXPECT_EQ(header.bitrate, "128");
    EXPECT_EQ(header.mode, "stereo");
}

TEST(Mp3Header, HasTheThreeRates) {
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x94, 0}).khz, "48");
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x98, 0}).khz, "32");
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x9C, 0}).khz, std::nullopt);
}

TEST(Mp3Header, IsMonoForTheLastModeOnly) {
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x90, 0x00}).mode, "stereo");
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x90, 0x80}).mode, "stereo");
    EXPECT_EQ(readMp3Header({0xFF, 0xFB, 0x90, 0xC0}).mode, "mono");
}

TEST(Mp3Header, HasEveryBitrateOfTheTable) {
    constexpr std::array<const char*, 16> rising{"0",   "32",  "40",  "48",  "56",  "64",
                                                 "80",  "96",  "112", "128", "160", "192",
                                                 "224", "256", "320", "0"};
    for (std::size_t index = 0; index < rising.size(); ++index) {
        const auto third = static_cast<std::uint8_t>(index << 4);
        EXPECT_EQ(readMp3Header({0xFF, 0xFB, third, 0}).bitrate, rising[index]) << index;
    }
}

TEST(Mp3Header, OfATagIsReadToo) {
    const Mp3Header header = readMp3Header({'I', 'D', '3', 3}); // '3' is 0011 0011
    EXPECT_EQ(header.khz, "44");
    EXPECT_EQ(header.bitrate, "48");
    EXPECT_EQ(header.mode, "stereo");
}

} // namespace
} // namespace velorin

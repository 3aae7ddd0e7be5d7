// The length of a sound as text, and the limits.
#include "convert/SoundLength.h"

#include "convert/SoundTarget.h"

#include <gmock/gmock.h>

namespace velorin::convert {
namespace {

constexpr double minute = 60.0;

TEST(ASoundLength, IsShownAsClockTimeWithTheSizeOfTheFile) {
    EXPECT_EQ(lengthText({5.4, 44100, 0}), "0:05 of sound, 1 MB");
    EXPECT_EQ(lengthText({12 * minute + 5, 44100, 0}), "12:05 of sound, 128 MB");
    EXPECT_EQ(lengthText({72 * minute + 5, 44100, 192}), "1:12:05 of sound, 104 MB");
}

TEST(ASoundLength, IsWorthAWarningFromTenMinutesOn) {
    EXPECT_FALSE(needsWarning({599.0, 44100, 0}));
    EXPECT_TRUE(needsWarning({600.0, 44100, 0}));
}

TEST(ASoundLength, IsTooLongBeyondTheAllowedMinutes) {
    EXPECT_EQ(checkLength({60 * minute, 44100, 0}, 60).reason(), "");
    EXPECT_EQ(checkLength({60 * minute + 1, 44100, 0}, 60).reason(),
              "is too long: 1:00:01 of sound, 635 MB; --most-minutes allows 60");
    EXPECT_EQ(checkLength({60 * minute + 1, 44100, 0}, 61).reason(), "");
}

// 4 GiB are 405.8 minutes at 44,100 Hz.
TEST(ASoundLength, IsTooLongForAWavFileOver4GiB) {
    EXPECT_EQ(checkLength({405 * minute, 44100, 0}, 1440).reason(), "");
    EXPECT_THAT(checkLength({406 * minute, 44100, 0}, 1440).reason(),
                testing::StartsWith("is too long for a WAV file: 6:46:00 of sound, 4297 MB;"));
    EXPECT_EQ(checkLength({406 * minute, 22050, 0}, 1440).reason(), "");
    EXPECT_EQ(checkLength({406 * minute, 44100, 192}, 1440).reason(), "")
        << "an MP3 file has no such end";
}

TEST(ASoundLength, MayBeTheMostThatAWavFileHolds) {
    const double most = static_cast<double>(maxWavFrames); // one frame a second
    EXPECT_EQ(checkLength({most, 1, 0}, 20'000'000).reason(), "");
    EXPECT_NE(checkLength({most + 1.0, 1, 0}, 20'000'000).reason(), "");
}

} // namespace
} // namespace velorin::convert

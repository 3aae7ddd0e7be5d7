// What is said of the length of a sound, and what is too long.
#include "convert/SoundLength.h"

#include <gmock/gmock.h>

namespace velorin::convert {
namespace {

constexpr double minute = 60.0;

TEST(ASoundLength, IsSaidAsOnAClockWithTheSizeOfTheFile) {
    EXPECT_EQ(described({5.4, 44100, 0}), "0:05 of sound, 1 MB");
    EXPECT_EQ(described({12 * minute + 5, 44100, 0}), "12:05 of sound, 128 MB");
    EXPECT_EQ(described({72 * minute + 5, 44100, 192}), "1:12:05 of sound, 104 MB");
}

TEST(ASoundLength, IsSaidBeforeFromTenMinutesOn) {
    EXPECT_FALSE(isWorthARemark({599.0, 44100, 0}));
    EXPECT_TRUE(isWorthARemark({600.0, 44100, 0}));
}

TEST(ASoundLength, IsTooLongOverTheMinutesThatAreAllowed) {
    EXPECT_EQ(whyTooLong({60 * minute, 44100, 0}, 60), "");
    EXPECT_EQ(whyTooLong({60 * minute + 1, 44100, 0}, 60),
              "is too long: 1:00:01 of sound, 635 MB; --most-minutes allows 60");
    EXPECT_EQ(whyTooLong({60 * minute + 1, 44100, 0}, 61), "");
}

// 4 GiB are 405.8 minutes at 44,100 Hz.
TEST(ASoundLength, IsTooLongForAWavFileOver4GiB) {
    EXPECT_EQ(whyTooLong({405 * minute, 44100, 0}, 1440), "");
    EXPECT_THAT(whyTooLong({406 * minute, 44100, 0}, 1440),
                testing::StartsWith("is too long for a WAV file: 6:46:00 of sound, 4297 MB;"));
    EXPECT_EQ(whyTooLong({406 * minute, 22050, 0}, 1440), "");
    EXPECT_EQ(whyTooLong({406 * minute, 44100, 192}, 1440), "") << "an MP3 file has no such end";
}

} // namespace
} // namespace velorin::convert

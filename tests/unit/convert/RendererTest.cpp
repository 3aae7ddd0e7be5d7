// What counts as silence at the end of a sound.
#include "convert/Renderer.h"

#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

TEST(QuietFrames, AreThoseAfterTheLastSampleAboveThree) {
    const std::int16_t stereo[] = {0, 0, 4, 0, 3, -3, 0, 3};
    EXPECT_EQ(quietFramesAtEnd(stereo, 4), 2);
    const std::int16_t loudRight[] = {0, 0, 0, -4, 0, 0};
    EXPECT_EQ(quietFramesAtEnd(loudRight, 3), 1);
    EXPECT_EQ(quietFramesAtEnd(stereo, 1), 1);
}

} // namespace
} // namespace velorin::convert

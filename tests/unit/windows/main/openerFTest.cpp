// The splash.
#include "windows/main/openerF.h"

#include "windows/frame/SkinnedFrame.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(openerFTest, TheOutlineOfTheSplashIsCounted) {
    FrameState state;
    const openerF splash(state);
    EXPECT_EQ(state.RegionCount, 1);
}

} // namespace
} // namespace velorin

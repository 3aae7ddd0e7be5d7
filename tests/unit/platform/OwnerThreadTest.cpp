// An object belongs to the thread that made it.
#include "platform/OwnerThread.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(OwnerThread, IsTheThreadThatMadeTheObject) {
    const OwnerThread owner;
    EXPECT_TRUE(owner.isCaller());
    bool isOther = true;
    std::thread([&] { isOther = owner.isCaller(); }).join();
    EXPECT_FALSE(isOther);
}

} // namespace
} // namespace platform

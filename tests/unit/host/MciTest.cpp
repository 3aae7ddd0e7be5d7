// How the file devices answer while none of them is open.
#include "host/HostMci.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

TEST(TheFileDevices, AreAllClosedOnCommand) {
    HostMci mci;
    EXPECT_EQ(mci.mciSendStringA("close all", nullptr), 0U);
    EXPECT_EQ(mci.mciSendStringA("Close ALL", nullptr), 0U);
}

TEST(TheFileDevices, SayOfAnAliasThatItIsNotOpen) {
    HostMci mci;
    EXPECT_EQ(mci.mciSendStringA("stop sound", nullptr), 263U);
    EXPECT_EQ(mci.mciSendStringA("close midi", nullptr), 263U);
    EXPECT_FALSE(mci.mciGetErrorStringA(263).empty());
}

TEST(TheFileDevices, LeaveTheReplyAloneWhenAQueryFails) {
    HostMci mci;
    std::string reply = "as it was";
    EXPECT_EQ(mci.mciSendStringA("status midi mode", &reply), 263U);
    EXPECT_EQ(reply, "as it was");
}

TEST(TheFileDevices, DoNotKnowEveryWord) {
    HostMci mci;
    EXPECT_EQ(mci.mciSendStringA("dance sound", nullptr), 261U);
    EXPECT_EQ(mci.mciSendStringA("", nullptr), 267U);
    EXPECT_EQ(mci.mciSendStringA("play", nullptr), 292U);
    EXPECT_EQ(mci.mciGetErrorStringA(12345), "");
}

} // namespace
} // namespace velorin::host

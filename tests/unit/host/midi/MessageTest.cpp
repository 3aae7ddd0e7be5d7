// Unpacking words into MIDI messages.
#include "host/midi/ShortMessage.h"

#include <gmock/gmock.h>

namespace velorin::host {
namespace {

using testing::ElementsAre;

TEST(AShortMessage, HasItsStatusInTheLowestByte) {
    const ShortMessage message = unpack(0x7F3C90);
    EXPECT_EQ(message.count, 3U);
    EXPECT_THAT(message.byte, ElementsAre(0x90, 0x3C, 0x7F));
    EXPECT_EQ(message.kind(), 0x90);
    EXPECT_EQ(message.channel(), 0);
}

TEST(AShortMessage, OfOneDatumIgnoresOtherBytes) {
    const ShortMessage message = unpack(0xFF18C3);
    EXPECT_EQ(message.count, 2U);
    EXPECT_THAT(message.byte, ElementsAre(0xC3, 0x18, 0));
}

TEST(AShortMessage, IsEmptyIfADatumIsAbove127) {
    EXPECT_EQ(unpack(0x7F8090).count, 0U);
    EXPECT_EQ(unpack(0x803C90).count, 0U);
    EXPECT_EQ(unpack(0x80C0).count, 0U);
}

TEST(AShortMessage, IsEmptyWithoutAStatus) {
    EXPECT_EQ(unpack(0x7F3C10).count, 0U);
    EXPECT_EQ(unpack(0).count, 0U);
}

TEST(AShortMessage, NeverBeginsOrEndsAnExclusiveOne) {
    EXPECT_EQ(unpack(0xF0).count, 0U);
    EXPECT_EQ(unpack(0xF7).count, 0U);
    EXPECT_EQ(unpack(0xF4).count, 0U);
    EXPECT_EQ(unpack(0xFA).count, 1U);
}

// A chord note 12 below key 5 packs to a negative word, whose key byte is -7 + 256.
TEST(AShortMessage, WithAKeyBelow0IsEmpty) {
    const std::int32_t packed = 0x90 + (5 - 12) * 256 + 70 * 65536;
    EXPECT_EQ(unpack(static_cast<std::uint32_t>(packed)).count, 0U);
}

} // namespace
} // namespace velorin::host

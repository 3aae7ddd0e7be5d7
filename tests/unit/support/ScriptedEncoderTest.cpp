// The scripted encoder.
#include "support/ScriptedEncoder.h"

#include <gtest/gtest.h>

#include <array>

namespace scripted {
namespace {

TEST(TheScriptedEncoder, LogsItsCallsAndGivesItsFewBytes) {
    ScriptedEncoder encoder;
    EXPECT_FALSE(encoder.isPresent("a"));
    encoder.absent = false;
    encoder.samples = 2;
    encoder.outputSize = 100;
    EXPECT_TRUE(encoder.isPresent("a"));
    std::uint32_t samples = 0;
    std::uint32_t size = 0;
    platform::EncoderStream stream = 0;
    EXPECT_EQ(encoder.beInitStream({}, samples, size, stream), 0U);
    EXPECT_EQ(samples, 2U);
    EXPECT_EQ(size, 100U);
    const std::array<std::int16_t, 2> input{0x3231, 0x3433}; // the characters 1234
    std::array<std::uint8_t, 100> output{};
    std::uint32_t bytes = 0;
    EXPECT_EQ(encoder.beEncodeChunk(stream, 2, input.data(), output.data(), bytes), 0U);
    EXPECT_EQ(bytes, 4U);
    EXPECT_EQ(output[3], 3);
    encoder.failures["flush"] = 5;
    EXPECT_EQ(encoder.beDeinitStream(stream, output.data(), bytes), 5U);
    EXPECT_EQ(bytes, 4U) << "a flush that fails leaves it as it is";
    ASSERT_EQ(encoder.log.size(), 3U);
    EXPECT_EQ(encoder.log[0].size(), 4U + 332 * 3);
    EXPECT_EQ(encoder.log[1], "chunk 2 9BE3E0A3");
    EXPECT_EQ(encoder.log[2], "flush");
}

TEST(TheScriptedEncoder, AlwaysAsksForRoomForItsBytes) {
    ScriptedEncoder encoder;
    encoder.outputSize = 1;
    std::uint32_t samples = 0;
    std::uint32_t size = 0;
    platform::EncoderStream stream = 0;
    EXPECT_EQ(encoder.beInitStream({}, samples, size, stream), 0U);
    EXPECT_EQ(size, 4U);
}

} // namespace
} // namespace scripted

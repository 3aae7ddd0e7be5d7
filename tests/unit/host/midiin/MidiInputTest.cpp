// The names of MIDI input ports, and the messages in their bytes.
#include "host/midiin/MidiInput.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace velorin::host;

TEST(MidiInputTest, TheNumbersAtTheEndOfANameGo) {
    EXPECT_EQ(withoutPortNumbers("Keys:Keys MIDI 1 20:0"), "Keys:Keys MIDI 1");
    EXPECT_EQ(withoutPortNumbers("Keys 128:15"), "Keys");
}

TEST(MidiInputTest, OtherNamesStay) {
    for (const char* const name :
         {"Keys:out", "Keys 49", "Take 5:", "20:0", "Keys 20:", "", "Keys:20"})
        EXPECT_EQ(withoutPortNumbers(name), name);
}

using Bytes = std::vector<unsigned char>;

TEST(MidiInputTest, AChannelMessageHasItsBytes) {
    const auto press = channelMessage(Bytes{0x92, 60, 127});
    ASSERT_TRUE(press);
    EXPECT_EQ(press->status, 0x92);
    EXPECT_EQ(press->data1, 60);
    EXPECT_EQ(press->data2, 127);
    const auto program = channelMessage(Bytes{0xCF, 5});
    ASSERT_TRUE(program);
    EXPECT_EQ(program->data1, 5);
    EXPECT_EQ(program->data2, 0);
}

TEST(MidiInputTest, SystemMessagesAndOtherBytesAreNoChannelMessage) {
    for (const Bytes& bytes : {Bytes{}, Bytes{60, 64}, Bytes{0xF0, 1, 0xF7}, Bytes{0xFE},
                               Bytes{0x90, 0x80, 1}, Bytes{0x90, 60, 0x90}})
        EXPECT_FALSE(channelMessage(bytes)) << testing::PrintToString(bytes);
}

} // namespace

// What is wrong with the sound of an MP3, for every format of the list.
#include "recording/Mp3Sound.h"

#include "recording/EncoderConfig.h"
#include "recording/RecordingFormats.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

EncoderChoice choiceOf(std::size_t format) {
    EncoderChoice choice;
    choice.sampleRate = encoderInputs.at(format).sampleRate;
    choice.mode = encoderInputs.at(format).mode;
    return choice;
}

std::string flawOfFormat(std::size_t format) {
    const WavFormat& row = wavFormats.at(format);
    return flawOfMp3({row.samplesPerSecond, row.bits, row.channels}, choiceOf(format));
}

TEST(Mp3SoundTest, OnlyTwoFormatsKeepTheSpeedOrNearlySo) {
    const std::array<const char*, 9> flaws{"It is noise.",
                                           "It is noise.",
                                           "Double speed, an octave too high.",
                                           "",
                                           "It is noise.",
                                           "It is noise.",
                                           "Double speed, an octave too high.",
                                           "Half speed, an octave too low.",
                                           "A little too slow and too low."};
    for (std::size_t format = 0; format < flaws.size(); ++format)
        EXPECT_EQ(flawOfFormat(format), flaws[format]) << wavFormats.at(format).row;
}

TEST(Mp3SoundTest, AWavOfAnotherFormatThanTheListSaysIsJudgedByItsHeader) {
    EXPECT_EQ(flawOfMp3({22050, 16, 2}, choiceOf(startWavFormat)), "");
    EXPECT_EQ(flawOfMp3({44100, 16, 1}, choiceOf(startWavFormat)), "");
    EXPECT_EQ(flawOfMp3({48000, 16, 2}, choiceOf(startWavFormat)), "Too slow and too low.");
    EXPECT_EQ(flawOfMp3({8000, 16, 1}, choiceOf(startWavFormat)), "Too fast and too high.");
}

TEST(Mp3SoundTest, TheHeaderOfAWavSaysItsRateItsBitsAndItsChannels) {
    std::array<char, 44> bytes{'R', 'I', 'F', 'F', 0,  0, 0, 0, 'W', 'A', 'V', 'E',
                               'f', 'm', 't', ' ', 16, 0, 0, 0, 1,   0,   2,   0};
    bytes[24] = 0x44; // 44,100 is 0xAC44
    bytes[25] = static_cast<char>(0xAC);
    bytes[34] = 16;
    const auto head = readWavHead(bytes);
    ASSERT_TRUE(head);
    EXPECT_EQ(head->samplesPerSecond, 44100);
    EXPECT_EQ(head->bits, 16);
    EXPECT_EQ(head->channels, 2);
    bytes[22] = 0; // no channels
    EXPECT_FALSE(readWavHead(bytes));
    bytes[22] = 2;
    bytes[20] = 3; // floating point
    EXPECT_FALSE(readWavHead(bytes));
    EXPECT_FALSE(readWavHead({}));
}

TEST(Mp3SoundTest, AHeaderThatNamesNoSamplesIsNone) {
    std::array<char, 44> bytes{'R', 'I', 'F', 'F', 0,  0, 0, 0, 'W', 'A', 'V', 'E',
                               'f', 'm', 't', ' ', 16, 0, 0, 0, 1,   0,   2,   0};
    bytes[25] = 1; // 256 samples per second
    bytes[34] = 16;
    ASSERT_TRUE(readWavHead(bytes).has_value());
    for (const std::size_t at : {std::size_t{22}, std::size_t{25}, std::size_t{34}}) {
        auto without = bytes;
        without[at] = 0;
        EXPECT_FALSE(readWavHead(without).has_value()) << at;
    }
}

} // namespace
} // namespace velorin

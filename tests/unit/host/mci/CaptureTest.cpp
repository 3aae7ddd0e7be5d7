// Recording: the content of the file in every format, and failures.
#include "CaptureStage.h"
#include "host/mci/MciErrors.h"
#include "host/media/SoundReader.h"
#include "host/media/WavWriter.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace velorin::host {
namespace {

class ARecording : public test::CaptureStage {};

TEST_F(ARecording, HoldsEverySampleFromTheFirstToTheLast) {
    pull(1000);
    begin(formatOf(44100, 16, 2));
    const std::size_t before = (stream_.stereo.size() / 2 + 63) / 64 * 64; // blocks of 64 frames
    pull(30000);
    EXPECT_EQ(ask("status capture mode"), "recording");
    const std::size_t after = (stream_.stereo.size() / 2 + 63) / 64 * 64;
    EXPECT_EQ(send("stop capture"), 0U);
    pull(1000);
    EXPECT_EQ(send("save capture " + at("a b.wav")), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    const std::string bytes = readBytes("a b.wav");
    ASSERT_EQ(bytes.size(), 44 + 4 * (after - before));
    for (std::size_t frame = 0; before + frame < after && before + frame < 31000; ++frame) {
        ASSERT_EQ(sampleAt(bytes, 44 + 4 * frame),
                  std::lround(stream_.stereo[2 * (before + frame)] * 32768.0F));
        ASSERT_EQ(sampleAt(bytes, 46 + 4 * frame),
                  std::lround(stream_.stereo[2 * (before + frame) + 1] * 32768.0F));
    }
}

TEST_F(ARecording, HasAPlainHeaderInEveryFormat) {
    struct Row {
        int rateHz, bits, channels;
    };
    for (const Row row : {Row{22050, 8, 1}, Row{22050, 8, 2}, Row{22050, 16, 1}, Row{22050, 16, 2},
                          Row{44100, 8, 1}, Row{44100, 8, 2}, Row{44100, 16, 1}, Row{44100, 16, 2},
                          Row{48000, 16, 2}}) {
        begin(formatOf(row.rateHz, row.bits, row.channels));
        pull(44160); // 690 blocks
        EXPECT_EQ(send("stop capture"), 0U);
        EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
        EXPECT_EQ(send("close capture"), 0U);
        const std::string bytes = readBytes("a.wav");
        const auto alignment = static_cast<std::uint32_t>(row.bits * row.channels / 8);
        const std::uint32_t data = numberAt(bytes, 40, 4);
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4),
                  "RIFFWAVEfmt data");
        EXPECT_EQ(numberAt(bytes, 4, 4), data + 36);
        EXPECT_EQ(numberAt(bytes, 16, 4), 16U);
        EXPECT_EQ(numberAt(bytes, 20, 2), 1U);
        EXPECT_EQ(numberAt(bytes, 22, 2), static_cast<std::uint32_t>(row.channels));
        EXPECT_EQ(numberAt(bytes, 24, 4), static_cast<std::uint32_t>(row.rateHz));
        EXPECT_EQ(numberAt(bytes, 28, 4), alignment * static_cast<std::uint32_t>(row.rateHz));
        EXPECT_EQ(numberAt(bytes, 32, 2), alignment);
        EXPECT_EQ(numberAt(bytes, 34, 2), static_cast<std::uint32_t>(row.bits));
        const double seconds = static_cast<double>(data) / alignment / row.rateHz;
        EXPECT_NEAR(seconds, 44160 / 44100.0, 1.0 / row.rateHz);
        EXPECT_EQ(bytes.size(), 44 + data);
    }
}

TEST_F(ARecording, OfEightBitsIsUnsignedAroundOneHundredAndTwentyEight) {
    begin(formatOf(44100, 8, 1));
    pull(640);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    const std::string bytes = readBytes("a.wav");
    ASSERT_EQ(bytes.size(), 44U + 640);
    for (std::size_t i = 0; i < 640; ++i) {
        // One channel is the mean of 0.5 and 0.25 times the wave.
        const double mean = 0.375 * std::sin(2.0 * M_PI * 441.0 * static_cast<double>(i) / 44100.0);
        ASSERT_NEAR(static_cast<unsigned char>(bytes[44 + i]), 128.0 + 128.0 * mean, 0.51);
    }
}

TEST_F(ARecording, RefusesAnUnknownFormat) {
    EXPECT_EQ(send("open new type waveaudio alias capture"), 0U);
    EXPECT_EQ(send("set capture " + formatOf(0, 16, 2)), mci::badFormat);
    EXPECT_EQ(send("set capture " + formatOf(44100, 12, 2)), mci::badFormat);
    EXPECT_EQ(send("set capture samplespersec 44100 channels 2 bitspersample 16 alignment 2"),
              mci::badFormat);
    EXPECT_EQ(send("set capture samplespersec many"), mci::badNumber);
    EXPECT_EQ(send("set capture colour 3"), mci::unknownWord);
    EXPECT_EQ(send("play capture"), mci::cannotDo);
}

TEST_F(ARecording, CannotBeSavedTwiceOrIntoAMissingFolder) {
    begin(formatOf(44100, 16, 2));
    pull(640);
    EXPECT_EQ(send("save capture " + at("none/a.wav")), mci::notSaved);
    EXPECT_EQ(recordings().size(), 1U) << "it is kept under another name";
    EXPECT_EQ(send("close capture"), 0U);
    begin(formatOf(44100, 16, 2));
    EXPECT_EQ(send("save capture"), mci::missingValue);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    EXPECT_EQ(send("save capture " + at("a.wav")), mci::notSaved);
    EXPECT_EQ(readBytes("a.wav").size(), 44U) << "nothing came between record and save";
}

TEST_F(ARecording, ReplacesAFileOfThatName) {
    writeBytes("a.wav", "older");
    begin(formatOf(44100, 16, 2));
    pull(64);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    EXPECT_EQ(readBytes("a.wav").size(), 44U + 4 * 64);
}

TEST(AWavFile, ReportsWhyNoMoreCanBeWritten) {
    const Descriptor file(open("/dev/full", O_WRONLY | O_CLOEXEC));
    WavWriter writer(file.number(), {44100, 16, 2}, 44100);
    writer.write(std::vector<float>(1000));
    writer.finish();
    EXPECT_EQ(writer.error(), std::errc::no_space_on_device);
    EXPECT_EQ(writer.frames(), 0);
}

TEST(AStreamOfSound, ComesBackBitForBitFromAWav) {
    const auto path = std::filesystem::path(testing::TempDir()) / "velorin-writer.wav";
    std::vector<float> stereo;
    for (int i = -32768; i < 32768; i += 7) {
        stereo.push_back(static_cast<float>(i) / 32768.0F);
        stereo.push_back(static_cast<float>(-i) / 32768.0F);
    }
    const Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    WavWriter writer(file.number(), {44100, 16, 2}, 44100);
    writer.write(stereo);
    writer.finish();
    ASSERT_FALSE(writer.error());
    const auto reader = openWav(path);
    ASSERT_TRUE(reader);
    std::vector<float> read(stereo.size());
    EXPECT_EQ(reader->read(read.data(), static_cast<int>(read.size() / 2)),
              static_cast<int>(read.size() / 2));
    stereo[1] = 32767.0F / 32768.0F; // the largest value; -32768 has no opposite
    EXPECT_EQ(read, stereo);
    std::filesystem::remove(path);
}

} // namespace
} // namespace velorin::host

// The encoder interface on the real library.
#include "host/media/LameEncoder.h"
#include "host/media/Lame.h"
#include "host/media/SoundReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

namespace velorin::host {

/// The flags of a stand-in library that only reports.
struct LameFlags {
    void (*error)(const char*, va_list) = nullptr;
    void (*debug)(const char*, va_list) = nullptr;
    void (*message)(const char*, va_list) = nullptr;
};

namespace {

namespace fs = std::filesystem;

// The record as the program fills it.
platform::ConfigRecord record(std::uint32_t rateHz, std::uint32_t mode, std::uint32_t bitrate,
                              std::uint32_t preset = 0) {
    platform::ConfigRecord config{};
    const auto put = [&config](std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            config[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
    };
    put(0, 256);
    put(4, 1);
    put(8, 331);
    put(12, rateHz);
    put(20, mode);
    put(24, bitrate);
    put(32, preset);
    put(36, 1);
    put(60, 0xFFFFFFFFU);
    put(80, 0xFFFFFFFFU);
    return config;
}

class TheEncoder : public testing::Test {
protected:
    void SetUp() override {
        if (!encoder.isPresent("/nowhere/System32/lame_enc.dll"))
            GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    }

    // Encodes a second of 440 hertz to a file.
    fs::path encoded(const platform::ConfigRecord& config, int channels) {
        std::uint32_t samples = 0;
        std::uint32_t size = 0;
        platform::EncoderStream stream = 0;
        EXPECT_EQ(encoder.beInitStream(config, samples, size, stream), 0U);
        std::vector<std::int16_t> input;
        for (int i = 0; i < 44100; ++i) {
            const auto sample =
                static_cast<std::int16_t>(12000.0 * std::sin(2.0 * M_PI * 440.0 * i / 44100.0));
            input.insert(input.end(), static_cast<std::size_t>(channels), sample);
        }
        std::vector<std::uint8_t> output(size);
        std::ofstream file(path, std::ios::binary);
        std::uint32_t bytes = 0;
        for (std::size_t at = 0; at < input.size(); at += samples) {
            const auto count = std::min<std::size_t>(samples, input.size() - at);
            EXPECT_EQ(encoder.beEncodeChunk(stream, static_cast<std::uint32_t>(count),
                                            input.data() + at, output.data(), bytes),
                      0U);
            file.write(reinterpret_cast<const char*>(output.data()), bytes);
        }
        EXPECT_EQ(encoder.beDeinitStream(stream, output.data(), bytes), 0U);
        file.write(reinterpret_cast<const char*>(output.data()), bytes);
        EXPECT_EQ(encoder.beCloseStream(stream), 0U);
        return path;
    }

    LameEncoder encoder{"/nowhere"};
    fs::path path = fs::path(testing::TempDir()) / "velorin-encoder.mp3";
};

TEST_F(TheEncoder, AsksForAFrameOfEachChannel) {
    std::uint32_t samples = 0;
    std::uint32_t size = 0;
    platform::EncoderStream stream = 0;
    EXPECT_EQ(encoder.beInitStream(record(44100, 1, 128), samples, size, stream), 0U);
    EXPECT_EQ(samples, 2304U);
    EXPECT_GE(size, 8640U);
    EXPECT_EQ(encoder.beCloseStream(stream), 0U);
    EXPECT_EQ(encoder.beInitStream(record(44100, 3, 128), samples, size, stream), 0U);
    EXPECT_EQ(samples, 1152U);
    EXPECT_EQ(encoder.beCloseStream(stream), 0U);
    EXPECT_EQ(encoder.beCloseStream(stream), platform::encoderInvalidHandle);
}

TEST_F(TheEncoder, KeepsTheBitrateAndTheSound) {
    encoded(record(44100, 1, 128), 2);
    // 128 kilobits a second for 1 second and the delay of the filters.
    EXPECT_NEAR(static_cast<double>(fs::file_size(path)), 16000.0, 1300.0);
    const auto reader = openMp3(path);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->rateHz(), 44100);
    EXPECT_EQ(reader->channels(), 2);
    EXPECT_NEAR(static_cast<double>(reader->frames()), 44100.0, 3000.0);
}

TEST_F(TheEncoder, TakesOneChannelInModeThree) {
    encoded(record(44100, 3, 64), 1);
    const auto reader = openMp3(path);
    ASSERT_TRUE(reader);
    EXPECT_EQ(reader->channels(), 1);
    const double seconds = static_cast<double>(reader->frames()) / reader->rateHz();
    EXPECT_NEAR(seconds, 1.0, 0.1);
}

TEST_F(TheEncoder, AcceptsEveryQualityWithoutChangingTheBitrate) {
    for (const std::uint32_t preset : {1U, 0U, 2U, 3U, 1000U, 6000U, 7000U, 8000U, 9000U, 10000U}) {
        encoded(record(44100, 1, 128, preset), 2);
        EXPECT_NEAR(static_cast<double>(fs::file_size(path)), 16000.0, 1300.0) << preset;
    }
}

TEST_F(TheEncoder, RefusesUnknownRecords) {
    std::uint32_t samples = 7;
    std::uint32_t size = 7;
    platform::EncoderStream stream = 7;
    platform::ConfigRecord other = record(44100, 1, 128);
    other[1] = 0; // not the LAME form
    EXPECT_EQ(encoder.beInitStream(other, samples, size, stream), platform::encoderInvalidFormat);
    EXPECT_EQ(encoder.beInitStream(record(0, 0, 128), samples, size, stream),
              platform::encoderInvalidParameters);
    EXPECT_EQ(encoder.beInitStream(record(44100, 9, 128), samples, size, stream),
              platform::encoderInvalidParameters);
    EXPECT_EQ(samples, 7U);
    EXPECT_EQ(encoder.beEncodeChunk(99, 0, nullptr, nullptr, size), platform::encoderInvalidHandle);
}

TEST(ABoundEncoder, IsNotFoundBesideAProgramThatHasNone) {
    LameEncoder encoder(testing::TempDir());
    EXPECT_FALSE(encoder.isPresent(testing::TempDir() + "\\lame_enc.dll"));
    std::uint32_t number = 0;
    platform::EncoderStream stream = 0;
    EXPECT_EQ(encoder.beInitStream(record(44100, 1, 128), number, number, stream),
              platform::encoderNoMoreHandles);
}

using Report = void (*)(const char*, va_list);

// Calls a reporter like the library does, if one was set.
void say(Report report, const char* text, ...) {
    va_list arguments;
    va_start(arguments, text);
    if (report)
        report(text, arguments);
    else
        std::vfprintf(stderr, text, arguments);
    va_end(arguments);
}

TEST(AnEncoding, SuppressesTheLibrarysOutputOnStandardError) {
    auto lame = std::make_shared<Lame>();
    lame->init = [] { return new LameFlags; };
    lame->close = [](LameFlags* flags) {
        delete flags;
        return 0;
    };
    lame->setErrorReport = [](LameFlags* flags, Report report) {
        flags->error = report;
        return 0;
    };
    lame->setDebugReport = [](LameFlags* flags, Report report) {
        flags->debug = report;
        return 0;
    };
    lame->setMessageReport = [](LameFlags* flags, Report report) {
        flags->message = report;
        return 0;
    };
    const LameStream stream(lame);
    stream.silence();
    testing::internal::CaptureStderr();
    say(stream.flags()->error, "error %d", 1);
    say(stream.flags()->debug, "detail %d", 2);
    say(stream.flags()->message, "message %d", 3);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Loading a library runs its code with the rights of the program.
TEST(ABoundEncoder, IsNotLoadedFromTheFolderOfTheMusic) {
    const fs::path folder = fs::path(testing::TempDir()) / "velorin-music";
    fs::create_directories(folder);
    std::error_code error;
    fs::path systems;
    for (const char* place :
         {"/usr/lib/x86_64-linux-gnu", "/usr/lib/aarch64-linux-gnu", "/usr/lib", "/usr/lib64"}) {
        if (fs::exists(fs::path(place) / Lame::fileName, error))
            systems = fs::path(place) / Lame::fileName;
    }
    if (systems.empty())
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    fs::remove(folder / Lame::fileName, error);
    fs::create_symlink(systems, folder / Lame::fileName);
    LameEncoder elsewhere("/nowhere");
    EXPECT_FALSE(elsewhere.isPresent((folder / "lame_enc.dll").string()));
    LameEncoder beside(folder);
    EXPECT_TRUE(beside.isPresent("/any\\lame_enc.dll")) << "beside the program's file";
    fs::remove_all(folder);
}

TEST(AnMp3Reader, KnowsTheLengthOfAFileWithoutATag) {
    EXPECT_FALSE(openMp3("/nowhere.mp3"));
    EXPECT_FALSE(openMp3(testing::TempDir()));
}

} // namespace
} // namespace velorin::host

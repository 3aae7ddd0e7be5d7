// MP3 files with an encoder that fails.
#include "convert/Mp3Target.h"
#include "support/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace velorin::convert {
namespace {

host::LameFlags* anyFlags() {
    static int flags = 0; // only its address is used
    return reinterpret_cast<host::LameFlags*>(&flags);
}

/// An encoder that returns `bytes` bytes for each piece of sound, or fails with a negative number.
/// It leaves `errno` as after a success.
template <int bytes>
std::shared_ptr<const host::Lame> encoderThatMakes() {
    using Flags = host::LameFlags*;
    auto lame = std::make_shared<host::Lame>();
    const auto take = [](Flags, int) { return 0; };
    lame->init = anyFlags;
    for (auto* call : {&lame->setInSampleRate, &lame->setOutSampleRate, &lame->setChannels,
                       &lame->setMode, &lame->setBitrate, &lame->setQuality, &lame->setWriteTag})
        *call = take;
    for (auto* call : {&lame->setErrorReport, &lame->setDebugReport, &lame->setMessageReport})
        *call = [](Flags, void (*)(const char*, va_list)) { return 0; };
    lame->initParameters = [](Flags) { return 0; };
    lame->encodeInterleaved = [](Flags, short*, int, unsigned char* out, int) {
        std::memset(out, 0, bytes > 0 ? bytes : 0);
        errno = 0;
        return bytes;
    };
    lame->flush = [](Flags, unsigned char*, int) {
        errno = 0;
        return 0;
    };
    lame->tagFrame = [](const host::LameFlags*, unsigned char*, std::size_t) {
        return std::size_t{0};
    };
    lame->close = [](Flags) { return 0; };
    return lame;
}

/// What the encoder below was told.
struct Told {
    int mode = -1;
    int quality = -1;
    std::vector<short> left;
    std::vector<short> right;
};

Told& told() {
    static Told values; // the library's functions have no place for it
    return values;
}

/// An encoder for one channel, of one byte for each sample. Its first frame is "TAG" in the end.
std::shared_ptr<host::Lame> monoEncoder() {
    using Flags = host::LameFlags*;
    told() = {};
    auto lame = std::make_shared<host::Lame>(*encoderThatMakes<1>());
    lame->setMode = [](Flags, int mode) { return (told().mode = mode, 0); };
    lame->setQuality = [](Flags, int quality) { return (told().quality = quality, 0); };
    lame->encode = [](Flags, const short* left, const short* right, int frames, unsigned char* out,
                      int) {
        told().left.assign(left, left + frames);
        told().right.assign(right, right + frames);
        std::memset(out, '.', static_cast<std::size_t>(frames));
        return frames;
    };
    lame->tagFrame = [](const host::LameFlags*, unsigned char* out, std::size_t) {
        std::memcpy(out, "TAG", 3);
        return std::size_t{3};
    };
    return lame;
}

class AnMp3Target : public testing::Test {
protected:
    // Returns why it failed; empty on success.
    std::string encode(const std::shared_ptr<const host::Lame>& lame) {
        auto made = makeMp3(folder_.path() / "a.mp3", {}, lame);
        if (!made)
            return made.reason();
        const std::unique_ptr<SoundTarget> target = std::move(*made);
        const std::vector<std::int16_t> silence(std::size_t{2} * 1000);
        for (int piece = 0; piece < 10; ++piece) {
            if (!target->write(silence.data(), 1000)) {
                errno = 0;
                return target->failureReason();
            }
        }
        return target->finish().reason();
    }

    [[nodiscard]] std::string written() const {
        std::ifstream in(folder_.path() / "a.mp3", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    scripted::TemporaryFolder folder_;
};

TEST_F(AnMp3Target, ReportsAFailureOfTheEncoder) {
    EXPECT_EQ(encode(encoderThatMakes<-3>()), "cannot be made: the MP3 encoder fails with code -3");
}

TEST_F(AnMp3Target, ReportsTheErrorOfTheSystemIfTheDiskIsFull) {
    const host::test::FullDisk disk(3000);
    EXPECT_EQ(encode(encoderThatMakes<1000>()), "cannot be written: File too large");
}

TEST_F(AnMp3Target, ReportsAFullDiskThatShowsOnlyAtTheEnd) {
    const host::test::FullDisk disk(3);
    EXPECT_EQ(encode(encoderThatMakes<1>()), "cannot be written: File too large");
}

TEST_F(AnMp3Target, NeedsAnEncoderAndAValidBitrate) {
    EXPECT_EQ(makeMp3(folder_.path() / "a.mp3", {}, nullptr).reason(),
              "cannot be made: the MP3 encoder (libmp3lame) is missing");
    const auto refused =
        makeMp3(folder_.path() / "a.mp3", {22050, 2, 320, -1}, encoderThatMakes<1>());
    EXPECT_THAT(refused.reason(),
                testing::StartsWith("cannot have a bitrate of 320: at 22050 Hz there are"));
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "a.mp3"));
}

TEST_F(AnMp3Target, OfOneChannelEncodesTheLeftSamplesOfEachFrame) {
    auto made = makeMp3(folder_.path() / "a.mp3", {44100, 1, 192, 5}, monoEncoder());
    ASSERT_TRUE(made) << made.reason();
    const std::vector<std::int16_t> stereo{10, -1, 20, -2, 30, -3, 40, -4};
    ASSERT_TRUE((*made)->write(stereo.data(), 4));
    ASSERT_TRUE((*made)->finish());
    EXPECT_EQ(told().mode, host::lameMono);
    EXPECT_EQ(told().quality, 5);
    EXPECT_THAT(told().left, testing::ElementsAre(10, 20, 30, 40));
    EXPECT_EQ(told().right, told().left);
    EXPECT_EQ(written(), "TAG.") << "the first frame tells players the length";
}

TEST_F(AnMp3Target, MayHaveTheBestQuality) {
    const auto made = makeMp3(folder_.path() / "a.mp3", {44100, 1, 192, 0}, monoEncoder());
    ASSERT_TRUE(made) << made.reason();
    EXPECT_EQ(told().quality, 0);
}

TEST_F(AnMp3Target, KeepsAFirstFrameThatDoesNotFit) {
    const auto lame = monoEncoder();
    lame->tagFrame = [](const host::LameFlags*, unsigned char*, std::size_t size) {
        return size + 1;
    };
    auto made = makeMp3(folder_.path() / "a.mp3", {44100, 1, 192, -1}, lame);
    ASSERT_TRUE(made) << made.reason();
    const std::vector<std::int16_t> stereo(8);
    ASSERT_TRUE((*made)->write(stereo.data(), 4));
    ASSERT_TRUE((*made)->finish());
    EXPECT_EQ(told().quality, -1) << "the encoder has a default";
    EXPECT_EQ(written(), "....");
}

TEST_F(AnMp3Target, ThatHasFailedTakesNoMoreSoundAndKeepsTheFirstReason) {
    auto made = makeMp3(folder_.path() / "a.mp3", {}, encoderThatMakes<-3>());
    ASSERT_TRUE(made) << made.reason();
    const std::vector<std::int16_t> silence(200);
    EXPECT_FALSE((*made)->write(silence.data(), 100));
    EXPECT_FALSE((*made)->write(silence.data(), 100));
    EXPECT_EQ((*made)->finish().reason(), "cannot be made: the MP3 encoder fails with code -3");
}

TEST_F(AnMp3Target, ReportsAnEncoderThatFailsAtTheEnd) {
    const auto lame = monoEncoder();
    lame->flush = [](host::LameFlags*, unsigned char*, int) { return -1; };
    auto made = makeMp3(folder_.path() / "a.mp3", {44100, 1, 192, -1}, lame);
    ASSERT_TRUE(made) << made.reason();
    EXPECT_EQ((*made)->finish().reason(), "cannot be made: the MP3 encoder fails with code -1");
}

TEST_F(AnMp3Target, IsNotMadeIfTheEncoderRefusesIt) {
    const auto lame = monoEncoder();
    lame->initParameters = [](host::LameFlags*) { return -1; };
    EXPECT_EQ(makeMp3(folder_.path() / "a.mp3", {}, lame).reason(),
              "cannot be made: the MP3 encoder refuses these settings");
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "a.mp3"));
}

TEST_F(AnMp3Target, IsNotMadeWhereThereIsNoFolder) {
    EXPECT_EQ(makeMp3(folder_.path() / "no" / "a.mp3", {}, encoderThatMakes<1>()).reason(),
              "cannot be written: No such file or directory");
}

} // namespace
} // namespace velorin::convert

// MP3 files with an encoder that fails.
#include "convert/Mp3Target.h"
#include "../host/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace velorin::convert {
namespace {

host::LameFlags* anyFlags() {
    static int flags = 0; // only its address is used
    return reinterpret_cast<host::LameFlags*>(&flags);
}

/// An encoder that makes `bytes` bytes of each piece of sound, or fails with a negative number, and
/// that leaves `errno` as it would be after a success.
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

class AnMp3Target : public testing::Test {
protected:
    // Why it failed; empty if it went well.
    std::string encode(const std::shared_ptr<const host::Lame>& lame) {
        std::string reason;
        const auto target = makeMp3(folder_.path() / "a.mp3", {}, lame, reason);
        if (!target)
            return reason;
        const std::vector<std::int16_t> silence(std::size_t{2} * 1000);
        for (int piece = 0; piece < 10; ++piece) {
            if (!target->write(silence.data(), 1000)) {
                errno = 0;
                return target->whyFailed();
            }
        }
        return target->finish();
    }

    scripted::TemporaryFolder folder_;
};

TEST_F(AnMp3Target, SaysThatTheEncoderFailedIfItDid) {
    EXPECT_EQ(encode(encoderThatMakes<-3>()), "cannot be made: the MP3 encoder fails with code -3");
}

TEST_F(AnMp3Target, SaysWhatTheSystemSaidWhenTheDiskWasFull) {
    const host::test::FullDisk disk(3000);
    EXPECT_EQ(encode(encoderThatMakes<1000>()), "cannot be written: File too large");
}

TEST_F(AnMp3Target, SaysSoToTheEndOfWhatIsHeldBack) {
    const host::test::FullDisk disk(3);
    EXPECT_EQ(encode(encoderThatMakes<1>()), "cannot be written: File too large");
}

TEST_F(AnMp3Target, NeedsAnEncoderAndABitrateThatThereIs) {
    std::string reason;
    EXPECT_EQ(makeMp3(folder_.path() / "a.mp3", {}, nullptr, reason), nullptr);
    EXPECT_EQ(reason, "cannot be made: the MP3 encoder (libmp3lame) is missing");
    EXPECT_EQ(makeMp3(folder_.path() / "a.mp3", {22050, 2, 320, -1}, encoderThatMakes<1>(), reason),
              nullptr);
    EXPECT_THAT(reason, testing::StartsWith("cannot have a bitrate of 320: at 22050 Hz there are"));
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "a.mp3"));
}

} // namespace
} // namespace velorin::convert

// The bitrates of MP3 files.
#include "convert/Bitrates.h"
#include "convert/Options.h"

#include <gmock/gmock.h>

namespace velorin::convert {
namespace {

using testing::ElementsAre;

TEST(TheBitrates, DependOnTheVersionOfTheFormat) {
    for (const int rateHz : {24'001, 32'000, 44'100, 48'000, 96'000})
        EXPECT_THAT(bitratesAt(rateHz), ElementsAre(8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128,
                                                    160, 192, 224, 256, 320))
            << rateHz;
    for (const int rateHz : {12'001, 16'000, 22'050, 24'000})
        EXPECT_THAT(bitratesAt(rateHz),
                    ElementsAre(8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160))
            << rateHz;
    for (const int rateHz : {8'000, 11'025, 12'000})
        EXPECT_THAT(bitratesAt(rateHz), ElementsAre(8, 16, 24, 32, 40, 48, 56, 64)) << rateHz;
}

TEST(TheBitrates, HaveADefaultThatTheRateAllows) {
    EXPECT_EQ(defaultBitrateAt(44'100), 192);
    EXPECT_EQ(defaultBitrateAt(22'050), 160);
    EXPECT_EQ(defaultBitrateAt(8'000), 64);
}

TEST(TheBitrates, AreListedIfOneIsRefused) {
    EXPECT_EQ(checkBitrate(44'100, 320).reason(), "");
    EXPECT_EQ(checkBitrate(8'000, 128).reason(),
              "cannot have a bitrate of 128: at 8000 Hz there are 8, 16, 24, "
              "32, 40, 48, 56 and 64");
}

TEST(TheBitrates, OnTheCommandLineAreThoseOfMp3Files) {
    for (int bitrate = -1; bitrate <= 400; ++bitrate) {
        const auto at = [bitrate](const char* rateHz) {
            return readOptions({"a.sng", "--to", "mp3", "--rate", rateHz, "--bitrate",
                                std::to_string(bitrate)})
                .problem.empty();
        };
        for (const char* rateHz : {"8000", "22050", "44100"})
            EXPECT_EQ(at(rateHz), static_cast<bool>(checkBitrate(std::stoi(rateHz), bitrate)))
                << bitrate << " at " << rateHz;
    }
}

TEST(TheBitrates, ThatTheRateDoesNotAllowAreRefusedBeforeAnythingIsMade) {
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.mp3", "--bitrate", "320", "--rate", "22050"}).problem,
              "an MP3 file cannot have a bitrate of 320: at 22050 Hz there are 8, 16, 24, 32, 40, "
              "48, 56, 64, 80, 96, 112, 128, 144 and 160");
    EXPECT_EQ(readOptions({"a.wav", "-o", "a.mp3", "--bitrate", "320", "--rate", "22050"}).problem,
              "")
        << "a WAV file has a rate of its own";
    EXPECT_EQ(readOptions({"a.sng", "-o", "a.wav", "--bitrate", "320", "--rate", "22050"}).problem,
              "");
}

} // namespace
} // namespace velorin::convert

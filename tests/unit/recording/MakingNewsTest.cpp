// What the window is told while it records and encodes.
#include "RecordingStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

class News : public testing::Test, protected RecordingStage {
protected:
    News() {
        host.encoder.absent = false;
        host.encoder.samples = 4;
        host.encoder.outputSize = 16;
    }
    /// A WAV of 16-bit stereo at 44,100 Hz with `frames` frames.
    std::string wav(const std::string& name, int frames) {
        std::string bytes("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\2\0\x44\xAC\0\0", 28);
        bytes += std::string(6, '\0') + std::string("\x10\0", 2) + std::string(8, '\0');
        return write(name, bytes + std::string(static_cast<std::size_t>(frames) * 4, 's'));
    }
    Lines news() { return std::exchange(desk.news, {}); }
};

TEST_F(News, OfARecordingAreItsBeginWithItsRateAndItsEnd) {
    studio.run.SongsFolder = "Songs";
    capture.Cmdrecord_Click();
    EXPECT_EQ(news(),
              (Lines{"recording Songs/1tmp.wav 176400 of the score", "recorded Songs/1tmp.wav"}));
}

TEST_F(News, OfARecordingThatCannotBeginAreNone) {
    host.mci.reply("set capture", 1, "");
    capture.Cmdrecord_Click();
    EXPECT_EQ(news(), Lines{});
}

TEST_F(News, OfAnEncodingSayHowFarItIsAndWhatIsWrongWithItsSound) {
    studio.run.WavFileName = wav("a.wav", 20);
    const std::string mp3 = inFolder("a.mp3");
    encoding.Command20_Click();
    EXPECT_EQ(news(),
              (Lines{"encoding " + mp3, "made " + mp3 + "; Half speed, an octave too low."}));
    ASSERT_GT(desk.shares.size(), 2U);
    EXPECT_LT(desk.shares.front(), 0.1);
    EXPECT_DOUBLE_EQ(desk.shares.back(), 1.0);
    desk.lists[RecordList::cbxFormat] = 3;
    studio.run.WavFileName = wav("a.wav", 20);
    encoding.Command20_Click();
    EXPECT_EQ(news().back(), "made " + mp3 + "; Half speed, an octave too low.");
    desk.lists[RecordList::cbxFormat] = 9; // has no row: 48,000 Hz in stereo
    encoding.Command20_Click();
    EXPECT_EQ(news().back(), "made " + mp3 + "; A little too fast and too high.");
}

TEST_F(News, OfAnEncodingThatIsNotWholeOrStoppedSayIt) {
    studio.run.WavFileName = wav("a.wav", 200);
    in(0.0, [this] { in(0.0, [this] { encoding.Command20_Click(); }); });
    encoding.Command20_Click();
    EXPECT_EQ(news().back(),
              "made " + inFolder("a.mp3") + ", stopped; Half speed, an octave too low.");
    host.encoder.failures["chunk"] = 5;
    encoding.Command20_Click();
    EXPECT_EQ(news().back(),
              "made " + inFolder("a.mp3") + ", not whole; Half speed, an octave too low.");
}

TEST_F(News, ExplainTheMessageAboutAWavThatWasEncodedAndDeleted) {
    desk.checks[RecordCheck::Check3] = true;
    studio.run.WavFileName = wav("a.wav", 20);
    encoding.Command20_Click();
    news();
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;Enter a valid Wave file."});
    EXPECT_EQ(news(),
              Lines{"hint The recording is complete: its MP3 was made, and then the WAV was "
                    "deleted. Ignore the message."});
    studio.run.WavFileName = inFolder("other.wav");
    encoding.Command20_Click();
    EXPECT_EQ(news(), Lines{}) << "this WAV was never there";
}

} // namespace
} // namespace velorin

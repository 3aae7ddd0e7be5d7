// Recordings and their MP3 files as other programs read them, and what a full disk leaves.
#include "OtherPrograms.h"
#include "RecordedStage.h"
#include "host/media/WavHeader.h"
#include "support/FullDisk.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

using test::Beats;
using test::isThere;
using test::quoted;
using test::Side;
using test::told;

class ARecordingOfBeats : public test::RecordedStage {
protected:
    // Decodes the MP3 with another decoder than the player uses.
    std::vector<Side> decoded(const std::string& mp3) {
        const std::string wav = at("decoded.wav");
        told("lame --quiet --decode " + quoted(mp3) + " " + quoted(wav) + " 2>&1");
        return test::sidesOf(wav);
    }

    // Whether a side is the beats, so many times as fast, and as loud as that.
    static void expectBeats(const Side& side, double speed, double amplitude) {
        const std::vector<double> onsets = side.onsets(amplitude);
        ASSERT_EQ(onsets.size(), static_cast<std::size_t>(Beats::count));
        EXPECT_NEAR(onsets[0], Beats::firstS / speed, 0.06) << "what the encoder puts in front";
        for (std::size_t i = 1; i < onsets.size(); ++i)
            EXPECT_NEAR(onsets[i] - onsets[i - 1], Beats::apartS / speed, 0.0015) << i;
        const double inside = onsets[2] + 0.05 / speed;
        const double whole = 0.15 / speed;
        // The encoder makes one channel softer by half a decibel.
        EXPECT_NEAR(side.strength(Beats::hz * speed, inside, whole), amplitude, 0.06 * amplitude);
        for (const double other : {0.5, 0.94, 1.06, 2.0}) // a semitone beside it, and octaves
            EXPECT_LT(side.strength(Beats::hz * speed * other, inside, whole), 0.15 * amplitude);
    }

    void needLame() {
        if (!isThere("lame"))
            GTEST_SKIP() << "no other decoder (lame)";
    }
};

TEST_F(ARecordingOfBeats, ReadsBackInEveryFormatWithAnotherProgram) {
    if (!isThere("soxi"))
        GTEST_SKIP() << "no other reader (sox)";
    for (std::size_t row = 0; row < wavFormats.size(); ++row) {
        const WavFormat& format = wavFormats[row];
        SCOPED_TRACE(format.row);
        host_.desktop.randoms.push_back(0.1 * static_cast<double>(row));
        const std::string wav = quoted(record(static_cast<int>(row)));
        EXPECT_EQ(told("soxi -t " + wav), "wav");
        EXPECT_EQ(told("soxi -r " + wav), std::to_string(format.samplesPerSecond));
        EXPECT_EQ(told("soxi -c " + wav), std::to_string(format.channels));
        EXPECT_EQ(told("soxi -b " + wav), std::to_string(format.bits));
        EXPECT_EQ(told("soxi -e " + wav),
                  format.bits == 8 ? "Unsigned Integer PCM" : "Signed Integer PCM");
        // Whole blocks of 64 frames are recorded: the last one begins before the end.
        const double frames = std::stod(told("soxi -s " + wav));
        EXPECT_NEAR(frames / format.samplesPerSecond, Beats::lengthS, 0.002);
        const std::uintmax_t size = std::filesystem::file_size(wavName());
        EXPECT_EQ(told("sox " + wav + " -t raw -").size() + 44, size)
            << "a header of 44 bytes, then the samples";
    }
}

TEST_F(ARecordingOfBeats, SoundsInEveryFormatAsItWasHeard) {
    for (std::size_t row = 0; row < wavFormats.size(); ++row) {
        SCOPED_TRACE(wavFormats[row].row);
        host_.desktop.randoms.push_back(0.1 * static_cast<double>(row));
        const std::vector<Side> sides = test::sidesOf(record(static_cast<int>(row)));
        if (wavFormats[row].channels == 1) {
            ASSERT_EQ(sides.size(), 1U);
            expectBeats(sides[0], 1.0, (Beats::left + Beats::right) / 2);
            continue;
        }
        ASSERT_EQ(sides.size(), 2U);
        expectBeats(sides[0], 1.0, Beats::left);
        expectBeats(sides[1], 1.0, Beats::right);
    }
}

// The two sides are read as successive samples of the one channel: twice as slow and an octave low,
// and as loud as their mean.
TEST_F(ARecordingOfBeats, InTheDefaultFormatGivesAnMp3OfOneSideAtHalfTheSpeed) {
    needLame();
    record(7);
    const std::vector<Side> sides = decoded(encode());
    ASSERT_EQ(sides.size(), 1U);
    EXPECT_EQ(sides[0].rateHz, 44100.0);
    EXPECT_NEAR(sides[0].seconds(), 2 * Beats::lengthS, 0.1);
    expectBeats(sides[0], 0.5, (Beats::left + Beats::right) / 2);
}

// At half the rate, successive samples of one channel are the recording at its own speed.
TEST_F(ARecordingOfBeats, InStereoAtHalfTheRateGivesAnMp3ThatSoundsLikeIt) {
    needLame();
    record(3);
    const std::vector<Side> sides = decoded(encode());
    ASSERT_EQ(sides.size(), 1U);
    EXPECT_EQ(sides[0].rateHz, 44100.0);
    EXPECT_NEAR(sides[0].seconds(), Beats::lengthS, 0.1);
    expectBeats(sides[0], 1.0, (Beats::left + Beats::right) / 2);
}

TEST_F(ARecordingOfBeats, InTheHighestFormatGivesAnMp3OfBothSidesALittleSlow) {
    needLame();
    record(8);
    const std::vector<Side> sides = decoded(encode());
    ASSERT_EQ(sides.size(), 2U);
    constexpr double speed = 44100.0 / 48000.0;
    EXPECT_NEAR(sides[0].seconds(), Beats::lengthS / speed, 0.1);
    expectBeats(sides[0], speed, Beats::left);
    expectBeats(sides[1], speed, Beats::right);
}

// One channel as two: every second sample goes to the left, the others to the right.
TEST_F(ARecordingOfBeats, OfOneChannelGivesAnMp3TwiceAsFast) {
    needLame();
    for (const int row : {2, 6}) {
        SCOPED_TRACE(row);
        host_.desktop.randoms.push_back(0.1 * row);
        record(row);
        const std::vector<Side> sides = decoded(encode());
        ASSERT_EQ(sides.size(), 2U);
        EXPECT_EQ(sides[0].rateHz, wavFormats[static_cast<std::size_t>(row)].samplesPerSecond);
        for (const Side& side : sides)
            expectBeats(side, 2.0, (Beats::left + Beats::right) / 2);
    }
}

// Two bytes are taken for one sample, of the channels and the rate that the table says.
TEST_F(ARecordingOfBeats, OfEightBitsGivesNoiseOfThatLength) {
    needLame();
    for (const int row : {0, 1, 4, 5}) {
        SCOPED_TRACE(row);
        host_.desktop.randoms.push_back(0.1 * row);
        const double bytes = static_cast<double>(std::filesystem::file_size(record(row)) - 44);
        const EncoderInput& input = encoderInputs[static_cast<std::size_t>(row)];
        const std::vector<Side> sides = decoded(encode());
        const double channels = input.mode == 3 ? 1 : 2;
        ASSERT_EQ(sides.size(), static_cast<std::size_t>(channels));
        EXPECT_NEAR(sides[0].seconds(), bytes / 2 / channels / input.sampleRate, 0.15);
    }
}

TEST_F(ARecordingOfBeats, EncodedOntoAFullDiskLeavesAPartAndTheWavAndOneLogLine) {
    const std::string wav = record(7);
    const auto size = std::filesystem::file_size(wav);
    testing::internal::CaptureStderr();
    std::string mp3;
    {
        const host::test::FullDisk disk(50'000); // the MP3 would have 96,000 bytes
        mp3 = encode();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velorin: " + mp3 + " could not be written whole; is the disk full?\n");
    EXPECT_EQ(boxes(), Lines{});
    EXPECT_EQ(std::filesystem::file_size(mp3), 50'000U);
    EXPECT_EQ(std::filesystem::file_size(wav), size);
    EXPECT_EQ(desk_.captions[RecordCaption::Command20], "Encode File");
}

TEST_F(ARecordingOfBeats, OnAFullDiskIsKeptAsFarAsItFits) {
    writeBytes("older.wav", "older");
    {
        const host::test::FullDisk disk(50'000);
        desk_.lists[RecordList::cbxFormat] = 7;
        mainDesk_.onPlay = [this] { pull(host::streamRateHz); };
        capture_.Cmdrecord_Click();
    }
    EXPECT_EQ(boxes(), Lines{});
    EXPECT_EQ(readBytes("older.wav"), "older");
    EXPECT_EQ(std::filesystem::file_size(wavName()), 50'000U);
    const auto header = host::WavHeader::read(readBytes(wavName()));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->dataBytes, 50'000U - host::WavHeader::size);
}

TEST_F(ARecordingOfBeats, WhoseWavIsDeletedBeforeTheEncodingIsReported) {
    desk_.checks[RecordCheck::Check2] = true;
    host_.time.plan(scripted::nanosecondsPerSecond / 2,
                    [this] { std::filesystem::remove(wavName()); });
    desk_.lists[RecordList::cbxFormat] = 7;
    mainDesk_.onPlay = [this] { pull(640); };
    capture_.Cmdrecord_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;Enter a valid Wave file."});
    EXPECT_EQ(desk_.captions[RecordCaption::Command20], "Encode File");
}

} // namespace
} // namespace velorin

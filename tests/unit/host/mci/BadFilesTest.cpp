// Imperfect sound files: cut short, with tags, of another kind than their name says, with wrong
// lengths. Each is played to its end or refused.
#include "MciStage.h"
#include "host/mci/MciErrors.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

class AFileFromElsewhere : public test::MciStage {
protected:
    std::uint32_t openSound(const std::string& name) {
        return send("open waveaudio!" + at(name) + " alias sound");
    }
    std::uint32_t openMp3(const std::string& name) {
        return send("open " + at(name) +
                    " type MPEGVideo Alias audiomp3 parent 1 Style 1073741824");
    }

    /// Plays it to its end. Returns its length in milliseconds.
    int play(const std::string& alias) {
        const int length = std::stoi(ask("status " + alias + " length"));
        EXPECT_EQ(send("play " + alias), 0U);
        pullPlayed(length * 45 + 9000);
        EXPECT_EQ(ask("status " + alias + " mode"), "stopped");
        EXPECT_EQ(ask("status " + alias + " position"), std::to_string(length));
        EXPECT_EQ(send("close " + alias), 0U);
        return length;
    }

    void writeNumber(std::string& bytes, std::size_t place, std::uint32_t value) const {
        for (std::size_t i = 0; i < 4; ++i)
            bytes[place + i] = static_cast<char>(value >> (8 * i));
    }

    /// A second of sound, with a header for a test to change.
    std::string secondOfWav(int rateHz = 44100, int channels = 2) {
        std::vector<std::int16_t> samples;
        for (int i = 0; i < rateHz * channels; ++i)
            samples.push_back(static_cast<std::int16_t>(i % 100 * 100));
        writeWav("whole.wav", rateHz, channels, samples);
        return readBytes("whole.wav");
    }

    [[nodiscard]] double peakHeard() const {
        float peak = 0.0F;
        for (const float sample : stream_.stereo)
            peak = std::max(peak, std::abs(sample));
        return peak;
    }
};

TEST_F(AFileFromElsewhere, IsAsLongAsItsSamplesWhateverItsHeaderSays) {
    std::string bytes = secondOfWav();
    writeNumber(bytes, 4, 0xFFFFFFFFU);
    writeNumber(bytes, 40, 0xFFFFFFDBU);
    writeBytes("gigabytes.wav", bytes);
    ASSERT_EQ(openSound("gigabytes.wav"), 0U);
    EXPECT_EQ(play("sound"), 1000);
    EXPECT_GT(peakHeard(), 0.25);
}

TEST_F(AFileFromElsewhere, IsPlayedUpToTheCut) {
    const std::string bytes = secondOfWav();
    writeBytes("cut.wav", bytes.substr(0, 44 + 4 * 22050 + 3));
    ASSERT_EQ(openSound("cut.wav"), 0U);
    EXPECT_EQ(play("sound"), 500);
    writeBytes("header.wav", bytes.substr(0, 44));
    EXPECT_EQ(openSound("header.wav") == 0 ? play("sound") : 0, 0);
    for (const std::size_t length : {0U, 3U, 12U, 20U, 36U}) {
        writeBytes("head.wav", bytes.substr(0, length));
        EXPECT_EQ(openSound("head.wav"), mci::badFile) << length;
    }
}

TEST_F(AFileFromElsewhere, MayHaveOtherChunksBeforeItsSamples) {
    std::string bytes = secondOfWav();
    std::string tag("LIST\x10\0\0\0INFOINAM\4\0\0\0tune", 24);
    bytes.insert(36, tag);
    writeNumber(bytes, 4, static_cast<std::uint32_t>(bytes.size() - 8));
    writeBytes("tagged.wav", bytes);
    ASSERT_EQ(openSound("tagged.wav"), 0U);
    EXPECT_EQ(play("sound"), 1000);
}

TEST_F(AFileFromElsewhere, MayHaveAnyRateAndNumberOfChannels) {
    for (const int rateHz : {8000, 11025, 44056, 96000}) {
        writeBytes("odd.wav", secondOfWav(rateHz, 1));
        ASSERT_EQ(openSound("odd.wav"), 0U) << rateHz;
        EXPECT_EQ(play("sound"), 1000) << rateHz;
    }
    for (const int channels : {3, 6}) {
        writeBytes("odd.wav", secondOfWav(22050, channels));
        ASSERT_EQ(openSound("odd.wav"), 0U) << channels;
        EXPECT_EQ(play("sound"), 1000) << channels;
    }
    std::string bytes = secondOfWav();
    writeNumber(bytes, 24, 0);
    writeBytes("still.wav", bytes);
    EXPECT_EQ(openSound("still.wav"), mci::badFile);
    bytes = secondOfWav();
    bytes[22] = 0; // no channels
    writeBytes("none.wav", bytes);
    EXPECT_EQ(openSound("none.wav"), mci::badFile);
}

TEST_F(AFileFromElsewhere, IsRefusedByTheDeviceOfAnotherKind) {
    writeBytes("song.mid", test::shortSong());
    writeBytes("song.wav", test::shortSong());
    writeBytes("song.mp3", test::shortSong());
    writeBytes("sound.mid", secondOfWav());
    EXPECT_EQ(openSound("song.wav"), mci::badFile);
    EXPECT_EQ(openMp3("song.mp3"), mci::badFile);
    EXPECT_EQ(send("open sequencer!" + at("sound.mid") + " alias midi"), mci::badFile);
    if (!writeMp3("really.mp3", 44100))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    writeBytes("mp3.wav", readBytes("really.mp3"));
    writeBytes("mp3.mid", readBytes("really.mp3"));
    EXPECT_EQ(openSound("mp3.wav"), mci::badFile);
    EXPECT_EQ(send("open sequencer!" + at("mp3.mid") + " alias midi"), mci::badFile);
}

TEST_F(AFileFromElsewhere, PlaysAsAnMp3WithTagsAtBothEnds) {
    if (!writeMp3("plain.mp3", 44100))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    const std::string plain = readBytes("plain.mp3");
    ASSERT_EQ(openMp3("plain.mp3"), 0U);
    const int length = play("audiomp3");
    std::string head("ID3\3\0\0\0\0\x10\0", 10); // 2,048 bytes follow
    head.append(2048, '\0');
    std::string tail = "TAG";
    tail.append(125, ' ');
    writeBytes("tagged.mp3", head + plain + tail);
    ASSERT_EQ(openMp3("tagged.mp3"), 0U);
    EXPECT_EQ(play("audiomp3"), length);
    head[6] = '\x7F'; // the tag claims 266 million bytes
    writeBytes("gigabytes.mp3", head + plain);
    if (openMp3("gigabytes.mp3") == 0) {
        EXPECT_LE(play("audiomp3"), length);
    }
}

TEST_F(AFileFromElsewhere, PlaysAsAnMp3UpToTheCut) {
    if (!writeMp3("plain.mp3", 88200))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    const std::string plain = readBytes("plain.mp3");
    writeBytes("cut.mp3", plain.substr(0, plain.size() / 2 + 7));
    ASSERT_EQ(openMp3("cut.mp3"), 0U);
    EXPECT_NEAR(play("audiomp3"), 1000, 80);
    writeBytes("empty.mp3", "");
    writeBytes("noise.mp3", std::string(5000, '\xFF'));
    EXPECT_EQ(openMp3("empty.mp3"), mci::badFile);
    EXPECT_EQ(openMp3("noise.mp3"), mci::badFile);
}

// Among random bytes there is what looks like a frame header every few thousand bytes.
std::string junk(std::size_t size) {
    std::string bytes;
    std::uint32_t random = 1;
    while (bytes.size() < size) {
        random = random * 1664525 + 1013904223;
        bytes += static_cast<char>(random >> 24);
    }
    return bytes;
}

TEST_F(AFileFromElsewhere, ContinuesAsAnMp3AfterOtherData) {
    if (!writeMp3("plain.mp3", 88200))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    const std::string plain = readBytes("plain.mp3");
    ASSERT_EQ(openMp3("plain.mp3"), 0U);
    const int length = play("audiomp3");
    const double peak = peakHeard();
    ASSERT_GT(length, 2000);
    const std::size_t half = plain.size() / 2;
    for (const std::string& between : {std::string(2000, '\0'), junk(100'000)}) {
        stream_.stereo.clear();
        writeBytes("parted.mp3", plain.substr(0, half) + between + plain.substr(half));
        ASSERT_EQ(openMp3("parted.mp3"), 0U);
        EXPECT_NEAR(play("audiomp3"), length, 60);
        EXPECT_LT(peakHeard(), 1.5 * peak) << "what is no sound does not sound";
    }
    writeBytes("tail.mp3", plain + junk(100'000));
    ASSERT_EQ(openMp3("tail.mp3"), 0U);
    EXPECT_EQ(play("audiomp3"), length);
}

TEST_F(AFileFromElsewhere, PlaysAsAMidFileUpToTheCut) {
    const std::string whole = test::shortSong();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        writeBytes("cut.mid", whole.substr(0, length));
        if (send("open sequencer!" + at("cut.mid") + " alias midi") != 0)
            continue;
        EXPECT_LE(std::stoi(ask("status midi length")), 75) << length;
        EXPECT_EQ(send("close midi"), 0U);
    }
    std::string longer = whole;
    longer.replace(18, 4, "\x7F\xFF\xFF\xFF"); // the track's length
    writeBytes("gigabytes.mid", longer);
    ASSERT_EQ(send("open sequencer!" + at("gigabytes.mid") + " alias midi"), 0U);
    EXPECT_EQ(ask("status midi length"), "75");
    EXPECT_EQ(send("close midi"), 0U);
}

} // namespace
} // namespace velorin::host

// In every situation the stream's thread takes no lock, no memory and no file, and does not sleep.
#include "StreamStage.h"

#include "host/capture/CaptureSource.h"
#include "host/mci/FileStream.h"

namespace velorin::host {
namespace {

using test::comesTrue;

class TheStreamsThread : public test::StreamStage {
protected:
    /// Ten seconds of a tone.
    static std::vector<std::int16_t> tone(int rateHz, int channels) {
        std::vector<std::int16_t> samples;
        for (int i = 0; i < 10 * rateHz * channels; ++i)
            samples.push_back(static_cast<std::int16_t>(i % 100 * 100));
        return samples;
    }

    /// All that the program and its files can do with a file that is opened under the alias.
    void playEveryWay(const std::string& alias) {
        order("play " + alias);
        listener_.waitForSound();
        order("pause " + alias);
        listener_.letPass(50);
        order("resume " + alias);
        listener_.waitForSound();
        order("seek " + alias + " to start");
        order("play " + alias + " from 500 to 600");
        EXPECT_TRUE(comesTrue([&] { return reply("status " + alias + " mode") == "stopped"; }));
        order("play " + alias + " from 0");
        listener_.waitForSound();
        order("stop " + alias);
        listener_.letPass(20);
        order("play " + alias);
        listener_.waitForSound();
        order("close " + alias); // while it sounds
        listener_.letPass(50);
    }
};

TEST_P(TheStreamsThread, OfAnIdleStream) {
    listener_.letPass(100);
}

TEST_P(TheStreamsThread, WhileTheSynthesizerLoadsAndPlays) {
    openSynthesizer();
    message(0xC0, 19); // the organ: these wait for the SoundFont
    message(0x90, 60, 127);
    listener_.waitForSound();
    for (unsigned channel = 0; channel < 16; ++channel) {
        for (unsigned program = 0; program < 128; program += 5) {
            message(0xC0 | channel, program);
            message(0x90 | channel, 30 + program / 2, 127);
        }
        for (const unsigned controller : {0, 1, 7, 10, 11, 32, 64, 91, 93, 120, 121, 123})
            message(0xB0 | channel, controller, 64);
        message(0xA0 | channel, 60, 100);
        message(0xD0 | channel, 100);
        message(0xE0 | channel, 0, 32);
        message(0xB0 | channel, 0, 127); // a bank that no SoundFont has
        message(0xC0 | channel, 127);
        message(0x90 | channel, 60, 127);
        listener_.letPass(10);
    }
    closeSynthesizer();
    listener_.letPass(50);
}

TEST_P(TheStreamsThread, WhenMoreNotesSoundThanTheSynthesizerHasVoices) {
    openSynthesizer();
    for (unsigned key = 0; key < 16 * 100; ++key)
        message(0x90 | key % 16, 10 + key / 16, 127);
    listener_.waitForSound();
    listener_.letPass(300);
    for (unsigned key = 0; key < 16 * 100; ++key)
        message(0x80 | key % 16, 10 + key / 16);
    listener_.letPass(100);
    closeSynthesizer();
    listener_.letPass(50);
}

TEST_P(TheStreamsThread, WhenTheDeviceIsClosedAndOpenedAgain) {
    openSynthesizer();
    message(0x90, 60, 127);
    listener_.waitForSound();
    for (int again = 0; again < 20; ++again) {
        closeSynthesizer();
        openSynthesizer();
        message(0x90, 60, 127);
        listener_.letPass(again);
    }
    closeSynthesizer();
    listener_.letPass(20);
}

TEST_P(TheStreamsThread, WhenTheQueueOfMessagesIsFull) {
    openSynthesizer();
    message(0x90, 60, 127);
    listener_.waitForSound();
    for (int i = 0; i < 200'000; ++i)
        message(i % 2 == 0 ? 0x90 : 0x80, 60, 127);
    listener_.letPass(50);
    closeSynthesizer();
    listener_.letPass(50);
}

TEST_P(TheStreamsThread, WhileWavFilesPlay) {
    writeWav("a.wav", 44100, 2, tone(44100, 2));
    order("open waveaudio!" + at("a.wav") + " alias sound");
    playEveryWay("sound");
    writeWav("b.wav", 22050, 1, tone(22050, 1));
    order("open waveaudio!" + at("b.wav") + " alias sound");
    playEveryWay("sound");
}

TEST_P(TheStreamsThread, WhileAnMp3FilePlays) {
    if (!writeMp3("a.mp3", 10 * 44100))
        GTEST_SKIP() << "no encoder";
    order("open " + at("a.mp3") + " type MPEGVideo alias audiomp3");
    playEveryWay("audiomp3");
}

TEST_P(TheStreamsThread, WhileAMidFilePlays) {
    std::string track("\x00\xC0\x13", 3); // the organ
    for (int note = 0; note < 100; ++note)
        track += std::string("\x00\x90\x3C\x7F\x0A\x80\x3C\x40", 8); // 50 ms each
    track += std::string("\x00\xFF\x2F\x00", 4);
    std::string song("MThd\0\0\0\6\0\0\0\1\0\x64MTrk\0\0", 20);
    song += static_cast<char>(track.size() / 256);
    song += static_cast<char>(track.size() % 256);
    writeBytes("a.mid", song + track);
    order("open sequencer!" + at("a.mid") + " alias midi");
    playEveryWay("midi");
}

TEST_P(TheStreamsThread, WhileItIsRecorded) {
    openSynthesizer();
    message(0xC0, 19);
    message(0x90, 60, 127);
    order("open new type waveaudio alias capture");
    order("record capture");
    listener_.waitForSound();
    listener_.letPass(300);
    order("stop capture");
    order("save capture " + at("a.wav"));
    order("close capture");
    EXPECT_GT(readBytes("a.wav").size(), 20'000U);
    listener_.letPass(20);
    closeSynthesizer();
}

TEST_P(TheStreamsThread, WhenATapIsFull) {
    const auto tap = std::make_shared<SoundTap>(0.01);
    sound_->engine().add(tap);
    EXPECT_TRUE(comesTrue([&] { return tap->lost() > 10; }));
    sound_->engine().remove(tap.get());
    listener_.letPass(20);
}

TEST_P(TheStreamsThread, WhileSourcesComeAndGo) {
    writeWav("a.wav", 44100, 2, tone(44100, 2));
    for (int i = 0; i < 50; ++i) {
        auto stream = std::make_shared<FileStream>(openWav(at("a.wav")), 0, 4410);
        const auto tap = std::make_shared<SoundTap>(0.1);
        SoundSource* const source = stream.get();
        sound_->engine().add(std::move(stream));
        sound_->engine().add(tap);
        listener_.letPass(i % 5);
        sound_->engine().remove(source);
        sound_->engine().remove(tap.get());
    }
    listener_.letPass(50);
}

INSTANTIATE_TEST_SUITE_P(OnACard, TheStreamsThread, testing::Values(test::silentCard));
INSTANTIATE_TEST_SUITE_P(WithoutACard, TheStreamsThread, testing::Values(test::noCard));

} // namespace
} // namespace velorin::host

// When the sound goes idle, with a stream that is pulled by hand.
#include "host/sound/HostSound.h"
#include "../mci/MciStage.h"

namespace velorin::host {
namespace {

using test::HandPulled;

class TheSoundAsAWhole : public test::MciStage {
protected:
    // Its worker is never released, so it opens no sound card and loads no SoundFont.
    HostSound sound_{folder_, {folder_}};
    HandPulled pulled_{sound_.engine()};

    void beQuietForTwelveSeconds() {
        for (int second = 0; second < 12; ++second)
            pulled_.pull(44100);
        sound_.idleIfQuiet();
    }

    std::uint32_t order(const std::string& command) {
        return sound_.mci().mciSendStringA(command, nullptr);
    }
};

TEST_F(TheSoundAsAWhole, IsIdleAfterTenQuietSecondsUntilItIsWoken) {
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle());
    sound_.wake();
    EXPECT_FALSE(sound_.isIdle());
}

TEST_F(TheSoundAsAWhole, IsNotIdleWhileAMidFilePlays) {
    ASSERT_FALSE(test::anySoundFont().empty());
    writeBytes("a.mid", test::shortSong());
    beQuietForTwelveSeconds();
    EXPECT_EQ(order("open sequencer!" + at("a.mid") + " alias midi"), 0U);
    EXPECT_FALSE(sound_.isIdle()) << "its device is about to sound";
    EXPECT_EQ(order("play midi"), 0U); // waits for the synthesizer, which is never loaded
    beQuietForTwelveSeconds();
    EXPECT_FALSE(sound_.isIdle());
    EXPECT_EQ(order("pause midi"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle()) << "the user who resumes it wakes the stream";
}

TEST_F(TheSoundAsAWhole, IsNotIdleWhileASilentWavPlays) {
    writeWav("a.wav", 44100, 1, std::vector<std::int16_t>(20 * 44100));
    EXPECT_EQ(order("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(order("play sound"), 0U);
    for (int second = 0; second < 12; ++second) {
        ASSERT_TRUE(test::comesTrue([this] { return sound_.engine().isReadAhead(); }));
        pulled_.pull(44100);
    }
    sound_.idleIfQuiet();
    EXPECT_FALSE(sound_.isIdle());
    EXPECT_EQ(order("close sound"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle());
}

TEST_F(TheSoundAsAWhole, IsIdleAfterTheEndOfAWavUntilItsNextPlay) {
    writeWav("a.wav", 44100, 1, ramp(44100, 1));
    EXPECT_EQ(order("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(order("play sound"), 0U);
    for (int piece = 0; piece < 12; ++piece) {
        ASSERT_TRUE(test::comesTrue([this] { return sound_.engine().isReadAhead(); }));
        pulled_.pull(4096);
    }
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle()) << "though it is still open";
    EXPECT_EQ(order("play sound from 0"), 0U);
    EXPECT_FALSE(sound_.isIdle());
}

TEST_F(TheSoundAsAWhole, IsIdleWhileAWavIsPaused) {
    writeWav("a.wav", 44100, 1, ramp(5 * 44100, 1));
    EXPECT_EQ(order("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(order("play sound"), 0U);
    ASSERT_TRUE(test::comesTrue([this] { return sound_.engine().isReadAhead(); }));
    pulled_.pull(4096);
    EXPECT_EQ(order("pause sound"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle());
    EXPECT_EQ(order("resume sound"), 0U);
    EXPECT_FALSE(sound_.isIdle());
    for (int piece = 0; piece < 60; ++piece) {
        ASSERT_TRUE(test::comesTrue([this] { return sound_.engine().isReadAhead(); }));
        pulled_.pull(4096);
    }
    std::string mode;
    EXPECT_EQ(sound_.mci().mciSendStringA("status sound mode", &mode), 0U);
    EXPECT_EQ(mode, "stopped") << "it went on to its end";
}

TEST_F(TheSoundAsAWhole, IsIdleAfterTheEndOfAMidFile) {
    ASSERT_FALSE(test::anySoundFont().empty());
    writeBytes("a.mid", test::shortSong());
    platform::MidiOutHandle handle = 0;
    EXPECT_EQ(sound_.midi().midiOutOpen(handle, 0), 0U);
    EXPECT_EQ(order("open sequencer!" + at("a.mid") + " alias midi"), 0U);
    EXPECT_EQ(order("close midi"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle());
    EXPECT_EQ(sound_.midi().midiOutClose(handle), 0U);
}

TEST_F(TheSoundAsAWhole, IsNotIdleWhileItIsRecorded) {
    EXPECT_EQ(order("open new type waveaudio alias capture"), 0U);
    EXPECT_EQ(order("record capture"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_FALSE(sound_.isIdle());
    EXPECT_EQ(order("close capture"), 0U);
    beQuietForTwelveSeconds();
    EXPECT_TRUE(sound_.isIdle());
}

TEST_F(TheSoundAsAWhole, IsNotIdleInALongRestOfAMidFile) {
    const std::string track("\x00\x90\x3C\x40" // a note
                            "\x01\x3C\x00"     // its end
                            "\x9F\x60\x3C\x40" // 4,064 ticks of 5 ms later, the next
                            "\x01\x3C\x00"     // and its end
                            "\x00\xFF\x2F\x00",
                            4 + 3 + 4 + 3 + 4);
    std::string song("MThd\0\0\0\6\0\0\0\1\0\x64MTrk\0\0\0", 21);
    writeBytes("rest.mid", song + static_cast<char>(track.size()) + track);
    EXPECT_EQ(send("open sequencer!" + at("rest.mid") + " alias midi"), 0U);
    EXPECT_FALSE(mci_.isRunning());
    EXPECT_EQ(send("play midi"), 0U);
    const auto haveCome = [this](std::size_t count) {
        return test::comesTrue([this, count] { return port_.ofKind(0x90).size() == count; });
    };
    ASSERT_TRUE(haveCome(1));
    port_.wind(10);
    ASSERT_TRUE(haveCome(2));
    port_.wind(15'000);
    EXPECT_TRUE(mci_.isRunning());
    EXPECT_EQ(ask("status midi position"), "15010");
    port_.wind(5'315);
    ASSERT_TRUE(haveCome(3));
    playMidiOut();
    EXPECT_FALSE(mci_.isRunning());
}

} // namespace
} // namespace velorin::host

// The file devices: every command string of the program, over an engine whose stream is pulled by
// hand.
#include "MciStage.h"
#include "host/mci/MciErrors.h"

#include <gtest/gtest.h>

namespace velorin::host {
namespace {

using test::MciStage;

class TheFileDevices : public MciStage {};

TEST_F(TheFileDevices, AreAllClosedOnCommand) {
    EXPECT_EQ(send("close all"), 0U);
    EXPECT_EQ(send("Close ALL"), 0U);
}

TEST_F(TheFileDevices, ReportThatAnAliasIsNotOpen) {
    EXPECT_EQ(send("stop sound"), mci::notOpen);
    EXPECT_EQ(send("close midi"), mci::notOpen);
    EXPECT_FALSE(mci_.mciGetErrorStringA(mci::notOpen).empty());
}

TEST_F(TheFileDevices, LeaveTheReplyAloneWhenAQueryFails) {
    std::string reply = "as it was";
    EXPECT_EQ(mci_.mciSendStringA("status midi mode", &reply), mci::notOpen);
    EXPECT_EQ(reply, "as it was");
}

TEST_F(TheFileDevices, RefuseUnknownWords) {
    EXPECT_EQ(send("dance sound"), mci::unknownCommand);
    EXPECT_EQ(send(""), mci::noCommand);
    EXPECT_EQ(send("play"), mci::missingDevice);
    EXPECT_EQ(send("open"), mci::missingDevice);
    EXPECT_EQ(send("open new type waveaudio"), mci::newNeedsAlias);
    EXPECT_EQ(send("open new type organ alias a"), mci::noDriver);
    EXPECT_EQ(mci_.mciGetErrorStringA(12345), "");
}

TEST_F(TheFileDevices, RefuseAFileOfAnotherKind) {
    writeBytes("empty.wav", "");
    writeBytes("text.wav", "no sound at all");
    writeBytes("text.mid", "MThd");
    writeBytes("text.mp3", "neither");
    EXPECT_EQ(send("open waveaudio!" + at("none.wav") + " alias sound"), mci::fileNotFound);
    EXPECT_EQ(send("open waveaudio!" + at("empty.wav") + " alias sound"), mci::badFile);
    EXPECT_EQ(send("open waveaudio!" + at("text.wav") + " alias sound"), mci::badFile);
    EXPECT_EQ(send("open sequencer!" + at("text.mid") + " alias midi"), mci::badFile);
    EXPECT_EQ(send("open " + at("text.mp3") + " type MPEGVideo Alias audiomp3"), mci::badFile);
    EXPECT_EQ(send("open waveaudio!" + folder_.string() + " alias sound"), mci::badFile);
    EXPECT_EQ(send("status sound mode"), mci::notOpen);
}

TEST_F(TheFileDevices, PlayAWavWhoseNameHasBlanksAndCapitals) {
    writeWav("Two Words \xC3\x84.WAV", 44100, 2, ramp(44100));
    // The program sends the name in lower case.
    EXPECT_EQ(send("open waveaudio!" + at("two words \xC3\xA4.wav") + " alias sound"), 0U);
    EXPECT_EQ(send("open waveaudio!" + at("two words \xC3\xA4.wav") + " alias sound"),
              mci::aliasInUse);
    EXPECT_EQ(ask("status sound length"), "1000");
    EXPECT_EQ(ask("status sound mode"), "stopped");
    EXPECT_EQ(send("play sound"), 0U);
    EXPECT_EQ(ask("STATUS Sound MODE"), "playing");
    EXPECT_EQ(ask("status sound position"), "0");
    pullPlayed(22050);
    EXPECT_NEAR(std::stoi(ask("status sound position")), 500, 2);
    EXPECT_EQ(send("pause sound"), 0U);
    EXPECT_EQ(ask("status sound mode"), "paused");
    pull(4410);
    const std::string there = ask("status sound position");
    pull(4410);
    EXPECT_EQ(ask("status sound position"), there) << "a paused sound stays where it is";
    EXPECT_EQ(send("resume sound"), 0U);
    pullPlayed(24000);
    EXPECT_EQ(ask("status sound position"), "1000");
    EXPECT_EQ(ask("status sound mode"), "stopped");
    EXPECT_EQ(send("stop sound"), 0U);
    EXPECT_EQ(send("close sound"), 0U);
    EXPECT_EQ(send("close sound"), mci::notOpen);
}

TEST_F(TheFileDevices, StopAWavInTheMiddle) {
    writeWav("a.wav", 44100, 2, ramp(44100));
    EXPECT_EQ(send("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(send("play sound"), 0U);
    pullPlayed(22050);
    EXPECT_EQ(send("stop sound"), 0U);
    EXPECT_EQ(ask("status sound mode"), "stopped");
    pull(4410); // the fade-out
    const auto before = stream_.stereo.size();
    pull(4410);
    for (std::size_t i = before; i < stream_.stereo.size(); ++i)
        ASSERT_EQ(stream_.stereo[i], 0.0F) << i;
    EXPECT_LT(std::stoi(ask("status sound position")), 1000) << "it did not play to its end";
}

TEST_F(TheFileDevices, PlayTheChosenOneOfTwoFilesWhoseNamesDifferInCase) {
    writeWav("Tune.wav", 44100, 2, ramp(44100));
    writeWav("tune.wav", 44100, 2, ramp(22050));
    mci_.noteSpelling(at("Tune.wav"));
    EXPECT_EQ(send("open waveaudio!" + at("tune.wav") + " alias sound"), 0U);
    EXPECT_EQ(ask("status sound length"), "1000");
    EXPECT_EQ(send("close sound"), 0U);
    mci_.noteSpelling(at("tune.wav"));
    EXPECT_EQ(send("open waveaudio!" + at("tune.wav") + " alias sound"), 0U);
    EXPECT_EQ(ask("status sound length"), "500");
    EXPECT_EQ(send("close sound"), 0U);
    mci_.noteSpelling(at("other.wav"));
    EXPECT_EQ(send("open waveaudio!" + at("TUNE.wav") + " alias sound"), 0U) << "any of the two";
    EXPECT_EQ(send("close sound"), 0U);
}

TEST_F(TheFileDevices, PlayTheExactSamplesOfAWav) {
    const auto samples = ramp(3000);
    writeWav("a.wav", 44100, 2, samples);
    EXPECT_EQ(send("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(send("play sound"), 0U);
    pullPlayed(3200);
    const std::size_t first = firstSounding();
    ASSERT_LT(first + 2 * 2999, stream_.stereo.size());
    for (std::size_t i = 2; i < samples.size(); ++i) // the first frame of the ramp is silent
        ASSERT_EQ(std::lround(stream_.stereo[first + i - 2] * 32768.0F), samples[i]) << i;
}

TEST_F(TheFileDevices, PlayFromOnePlaceToAnother) {
    writeWav("a.wav", 22050, 1, ramp(22050, 1));
    EXPECT_EQ(send("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(send("set sound time format frames"), 0U);
    EXPECT_EQ(ask("status sound length"), "22050");
    EXPECT_EQ(ask("status sound time format"), "frames");
    EXPECT_EQ(send("play sound from 11025 to 16537"), 0U);
    pullPlayed(12000);
    EXPECT_EQ(ask("status sound position"), "16537");
    EXPECT_EQ(ask("status sound mode"), "stopped");
    EXPECT_EQ(send("seek sound to start"), 0U);
    EXPECT_EQ(ask("status sound position"), "0");
    EXPECT_EQ(send("seek sound to end"), 0U);
    EXPECT_EQ(ask("status sound position"), "22050");
    EXPECT_EQ(send("play sound from x"), mci::badNumber);
    EXPECT_EQ(send("play sound from 0 to 99999"), mci::outOfRange);
    EXPECT_EQ(send("play sound backwards"), mci::unknownWord);
    EXPECT_EQ(send("set sound time format ms"), 0U);
    EXPECT_EQ(ask("status sound length"), "1000");
    EXPECT_EQ(send("set sound time format years"), mci::badTimeFormat);
    EXPECT_EQ(send("record sound"), mci::cannotDo);
}

TEST_F(TheFileDevices, StopAtTheEndOfAFileThatIsCutOff) {
    writeWav("a.wav", 44100, 2, ramp(10000));
    std::filesystem::resize_file(folder_ / "a.wav", 44 + 4 * 5000);
    EXPECT_EQ(send("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
    EXPECT_EQ(send("play sound"), 0U);
    pullPlayed(11000);
    EXPECT_EQ(ask("status sound position"), ask("status sound length"));
    EXPECT_EQ(ask("status sound mode"), "stopped");
}

TEST_F(TheFileDevices, CanBePlayedAndClosedManyTimes) {
    writeWav("a.wav", 44100, 2, ramp(44100));
    for (int i = 0; i < 60; ++i) {
        EXPECT_EQ(send("open waveaudio!" + at("a.wav") + " alias sound"), 0U);
        EXPECT_EQ(send("play sound"), 0U);
        pull(256);
        EXPECT_EQ(send("close sound"), 0U);
        pull(256);
    }
    const std::size_t before = stream_.stereo.size();
    pull(256);
    for (std::size_t i = before; i < stream_.stereo.size(); ++i)
        ASSERT_EQ(stream_.stereo[i], 0.0F);
}

TEST_F(TheFileDevices, PlayAnMp3InFramesUnderItsShortName) {
    if (!writeMp3("my song 100%.mp3", 44100))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    const std::string name = HostSystemFiles(folder_).GetShortPathNameA(at("my song 100%.mp3"));
    ASSERT_EQ(name.find(' '), std::string::npos);
    EXPECT_EQ(send("open " + name + " type MPEGVideo Alias audiomp3 parent 1234 Style 1073741824"),
              0U);
    EXPECT_EQ(send("set audiomp3 time format ms"), 0U);
    EXPECT_NEAR(std::stoi(ask("status audiomp3 length")), 1000, 60);
    EXPECT_EQ(send("set audiomp3 time format frames"), 0U);
    const std::string length = ask("status audiomp3 length");
    EXPECT_NEAR(std::stoi(length), 44100, 2600);
    EXPECT_EQ(send("play audiomp3 from 0 to " + length), 0U);
    EXPECT_EQ(send("Pause audiomp3"), 0U);
    EXPECT_EQ(ask("status audiomp3 mode"), "paused");
    EXPECT_EQ(send("Resume audiomp3"), 0U);
    pullPlayed(48000);
    EXPECT_EQ(ask("status audiomp3 position"), length);
    // A tone of 440 hertz was encoded.
    EXPECT_GT(test::strengthOf(440.0, stream_.stereo, 20000, 8820), 0.1);
    EXPECT_LT(test::strengthOf(700.0, stream_.stereo, 20000, 8820), 0.01);
    EXPECT_EQ(send("Stop audiomp3"), 0U);
    EXPECT_EQ(send("Close audiomp3"), 0U);
}

TEST_F(TheFileDevices, PlayAMidFileOnTheDeviceThatIsSet) {
    writeBytes("A Song.mid", test::shortSong());
    mci_.setSequencerDevice(3);
    EXPECT_EQ(send("open sequencer!" + at("a song.mid") + " alias midi"), 0U);
    EXPECT_EQ(openedDevice_, 3);
    EXPECT_EQ(ask("status midi mode"), "stopped");
    EXPECT_EQ(ask("status midi length"), "75");
    EXPECT_EQ(send("set midi time format frames"), mci::badTimeFormat);
    EXPECT_EQ(send("play midi"), 0U);
    EXPECT_EQ(ask("status midi mode"), "playing");
    playMidiOut();
    EXPECT_EQ(ask("status midi position"), "75");
    EXPECT_EQ(send("pause midi"), 0U);
    EXPECT_EQ(send("close midi"), 0U);
    openedDevice_ = refused;
    EXPECT_EQ(send("open sequencer!" + at("a song.mid") + " alias midi"), mci::hardwareFailed);
}

} // namespace
} // namespace velorin::host

// What is heard after each way to stop. The song is played on the real synthesizer, with a clock
// that is moved by hand; the samples of the stream are checked.
#include "../mci/MciStage.h"

#include "host/midiout/HostMidiOut.h"
#include "host/process/Worker.h"
#include "session/Session.h"
#include "support/ScriptedPlatform.h"

#include <functional>

namespace velorin::host {
namespace {

using test::comesTrue;
using test::HandPulled;

/// A device of the host. Before each call the stream is pulled up to the current moment.
class PulledMidi final : public platform::MidiOut {
public:
    PulledMidi(HostMidiOut& midi, std::function<void()> pull)
        : midi_(midi), pull_(std::move(pull)) {}
    int midiOutGetNumDevs() override { return midi_.midiOutGetNumDevs(); }
    std::string midiOutGetDevCapsA(int index) override { return midi_.midiOutGetDevCapsA(index); }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override {
        pull_();
        return midi_.midiOutOpen(handle, index);
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override {
        pull_();
        return midi_.midiOutClose(handle);
    }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override {
        pull_();
        return midi_.midiOutShortMsg(handle, message);
    }

private:
    HostMidiOut& midi_;
    std::function<void()> pull_;
};

/// The port of a MID file, in the stream's time.
class PulledPort final : public SequencerPort {
public:
    PulledPort(std::unique_ptr<SequencerPort> port, std::atomic<std::int64_t>& nowNs)
        : port_(std::move(port)), nowNs_(nowNs) {}
    bool isReady() const override { return port_->isReady(); }
    std::int64_t leadNs() const override { return port_->leadNs(); }
    void send(std::int64_t dueNs, const ShortMessage& message) override {
        port_->send(dueNs, message);
    }
    std::int64_t nowNs() const override { return nowNs_; }
    void waitUntil(std::int64_t, std::condition_variable& notice,
                   std::unique_lock<std::mutex>& lock) override {
        notice.wait_for(lock, std::chrono::milliseconds(1));
    }

private:
    std::unique_ptr<SequencerPort> port_;
    std::atomic<std::int64_t>& nowNs_;
};

/// Far below what can be heard at the highest volume.
constexpr float audible = 0.001F;

/// A sustained sound; 60 is key 67. A column lasts 0.12 s.
constexpr int churchOrgan = 19;
constexpr int crashCymbal = 142;

class WhatIsHeard : public test::MciStage {
protected:
    WhatIsHeard() { host_.time.pass(HandPulled::startNs); }

    void SetUp() override {
        ASSERT_EQ(synths_.count(), 1U);
        studio_.setup.values.device = 1;
        sequencer_.PlayTimer = watch_.StopWatchNew();
        sounding_.Device_Click();
        worker_.waitUntilIdle(); // the SoundFont
    }

    void write(int row, int column, int length, int instrument, int pitch = 60) {
        for (int c = column; c < column + length; ++c) {
            const int cell = c == column ? pitch : heldCell(pitch);
            studio_.score.NoteArray.write(row, c, static_cast<std::int16_t>(cell));
            studio_.score.InstrumentArray.write(row, c, static_cast<std::int16_t>(instrument));
        }
    }

    void inSeconds(double seconds, std::function<void()> run) {
        host_.time.plan(static_cast<scripted::Nanoseconds>(seconds * 1e9), std::move(run));
    }

    void play() { sequencer_.PlayAndStop_Click(0); }
    void playUntilPause(double seconds) {
        inSeconds(seconds, [this] { studio_.run.PauseFlag = flagSet; });
        play();
    }

    void pullToNow() {
        while (stream2_.nowNs() < host_.time.now()) {
            stream2_.pull(SoundEngine::bufferFrames);
            nowNs_ = stream2_.nowNs();
        }
    }

    /// The loudest sample of the next seconds.
    float heardIn(double seconds) {
        pullToNow();
        stream2_.stereo.clear();
        const auto end = host_.time.now() + static_cast<scripted::Nanoseconds>(seconds * 1e9);
        while (host_.time.now() < end) {
            EXPECT_TRUE(comesTrue([this] { return engine2_.isReadAhead(); }));
            host_.time.pass(5'000'000);
            pullToNow();
        }
        float loudest = 0.0F;
        for (const float sample : stream2_.stereo)
            loudest = std::max(loudest, std::abs(sample));
        return loudest;
    }

    /// The delay of the stream, and the fade-out.
    void letFade() { heardIn(0.05); }

    void expectSoundUntil(const std::function<void()>& end) {
        EXPECT_GT(heardIn(0.3), audible);
        end();
        letFade();
        EXPECT_EQ(heardIn(3.0), 0.0F);
    }

    void expectSoundUntilStopAll() {
        expectSoundUntil([this] { sounding_.Command32_Click(); });
    }

    scripted::ScriptedPlatform host_;
    SoundEngine engine2_;
    HandPulled stream2_{engine2_};
    std::atomic<std::int64_t> nowNs_{HandPulled::startNs};
    Worker worker_;
    SynthDevices synths_{host_.time, engine2_, worker_, {{test::anySoundFont(), "Font", true}}};
    MidiPorts ports_;
    HostMidiOut devices_{synths_, ports_};
    PulledMidi midi_{devices_, [this] { pullToNow(); }};
    HostMci files_{{engine2_,
                    [this](int device) {
                        return std::make_unique<PulledPort>(devices_.openForSequencer(device),
                                                            nowNs_);
                    },
                    [] { return false; },
                    [] {},
                    {folder_}}};
    platform::Platform platform_{host_.time,    host_.time,       midi_,       files_,
                                 host_.dialogs, host_.boxes,      host_.files, host_.settings,
                                 host_.desktop, host_.menus,      host_.time,  host_.systemFiles,
                                 host_.encoder, folder_.string(), nullptr};
    Session session_{platform_};
    Studio& studio_ = session_.studio;
    NoteSounding& sounding_ = session_.sounding;
    StopWatch& watch_ = session_.watch;
    Sequencer& sequencer_ = session_.sequencer;
};

TEST_F(WhatIsHeard, AfterASongHasEndedIsItsDecayAndThenNothing) {
    write(0, 0, 4, churchOrgan);
    write(8, 1, 1, 130);
    play();
    EXPECT_GT(heardIn(0.1), audible);
    heardIn(12.0);
    EXPECT_EQ(heardIn(1.0), 0.0F);
}

TEST_F(WhatIsHeard, AfterAStopIsTheDecayAndThenNothing) {
    write(0, 0, 100, churchOrgan);
    inSeconds(0.5, [this] { sequencer_.PlayAndStop_Click(1); });
    play();
    heardIn(12.0);
    EXPECT_EQ(heardIn(1.0), 0.0F);
}

TEST_F(WhatIsHeard, AfterAPauseGoesOnUntilStopAll) {
    write(0, 0, 100, churchOrgan);
    playUntilPause(0.5);
    heardIn(12.0);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, OfARowThatWasHiddenGoesOnUntilStopAll) {
    write(0, 0, 8, churchOrgan);
    inSeconds(0.5, [this] { studio_.setup.values.options.rows[0].hidden = true; });
    play();
    heardIn(12.0);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, OfAClickedColumnGoesOnUntilStopAll) {
    write(1, 0, 1, churchOrgan);
    sounding_.StartNoteBtnDn(57);
    sounding_.StartColumnNotes();
    sounding_.SoundRow = 0;
    sounding_.StopNoteBtnUp(57);
    heardIn(12.0);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, OfEveryRowAtOnceEndsWithStopAll) {
    for (int row = 0; row < scoreRows; ++row) {
        write(row, 0, 8, isMusicRow(row) ? churchOrgan : crashCymbal, 50 + row);
        studio_.setup.values.options.rows[row].chord = true;
    }
    playUntilPause(0.2);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, OfACymbalIsCutOffByStopAll) {
    write(8, 0, 1, crashCymbal);
    playUntilPause(0.2);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, AfterStopAllWithinASongIsNothingIfItsNextColumnBeginsNothing) {
    write(0, 0, 20, churchOrgan);
    bool isChecked = false;
    inSeconds(0.5, [this] { sounding_.Command32_Click(); });
    inSeconds(0.55, [&] {
        pullToNow();
        stream2_.stereo.clear();
    });
    inSeconds(0.70, [&] {
        pullToNow();
        isChecked = true;
        for (const float sample : stream2_.stereo)
            ASSERT_EQ(sample, 0.0F);
    });
    play();
    EXPECT_TRUE(isChecked);
    EXPECT_EQ(heardIn(3.0), 0.0F);
}

TEST_F(WhatIsHeard, EndsWithEachOfTheOthersThatCloseTheDevice) {
    for (const auto& end :
         {&NoteSounding::StopSound, &NoteSounding::Device_Click, &NoteSounding::stopitall}) {
        sounding_.Device_Click();
        sounding_.ChangeInstrument(churchOrgan, 0);
        sounding_.StartNote(60, 0);
        expectSoundUntil([&] { std::invoke(end, sounding_); });
    }
}

TEST_F(WhatIsHeard, OfAWavFileEndsWithStopAll) {
    std::vector<std::int16_t> samples(10 * 44100);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int16_t>(i % 100 * 100);
    writeWav("a.wav", 44100, 1, samples);
    ASSERT_EQ(files_.mciSendStringA("open waveaudio!" + at("a.wav") + " alias sound", nullptr), 0U);
    ASSERT_EQ(files_.mciSendStringA("play sound", nullptr), 0U);
    expectSoundUntilStopAll();
}

TEST_F(WhatIsHeard, OfAMidFileEndsWithStopAll) {
    const std::string track("\x00\xC0\x13"     // the organ
                            "\x00\x90\x3C\x7F" // a note without an end
                            "\xC0\x00\x90\x3E\x7F"
                            "\x00\xFF\x2F\x00",
                            3 + 4 + 5 + 4);
    std::string song("MThd\0\0\0\6\0\0\0\1\0\x64MTrk\0\0\0", 21);
    song += static_cast<char>(track.size());
    writeBytes("a.mid", song + track);
    ASSERT_EQ(files_.mciSendStringA("open sequencer!" + at("a.mid") + " alias midi", nullptr), 0U);
    worker_.waitUntilIdle();
    ASSERT_EQ(files_.mciSendStringA("play midi", nullptr), 0U);
    EXPECT_TRUE(comesTrue([this] { return heardIn(0.1) > audible; }));
    expectSoundUntilStopAll();
}

// The panic button stops only WAV and MID files; an MP3 file has its own buttons.
TEST_F(WhatIsHeard, OfAnMp3FileEndsWhenAllDevicesAreClosed) {
    if (!writeMp3("a.mp3", 10 * 44100))
        GTEST_SKIP() << "no encoder";
    ASSERT_EQ(
        files_.mciSendStringA("open " + at("a.mp3") + " type MPEGVideo alias audiomp3", nullptr),
        0U);
    ASSERT_EQ(files_.mciSendStringA("play audiomp3", nullptr), 0U);
    EXPECT_GT(heardIn(0.3), audible);
    sounding_.Command32_Click();
    letFade();
    EXPECT_GT(heardIn(0.3), audible);
    expectSoundUntil([this] { sounding_.StopallSound(); });
}

} // namespace
} // namespace velorin::host

// The built-in synthesizer in the stream: when its notes begin, how they sound, how they end.
#include "host/midiout/SynthSource.h"
#include "../Sounds.h"
#include "host/synth/FluidSynth.h"

#include <algorithm>

namespace velorin::host {
namespace {

using test::HandPulled;
using test::msNs;
using test::onsetAfter;
using test::strengthOf;

ShortMessage noteOn(int key) {
    return unpack(0x7F0090U | static_cast<unsigned>(key) << 8);
}

ShortMessage noteOff(int key) {
    return unpack(0x80U | static_cast<unsigned>(key) << 8);
}

constexpr unsigned squareLead = 80; // begins at once and holds its pitch
constexpr unsigned woodblock = 115; // begins at once and is over soon

class TheSynthesizer : public testing::Test {
protected:
    TheSynthesizer() {
        engine_.add(source_);
        stream_.pull(64);
    }

    void load() {
        source_->provide(FluidSynth::load(test::anySoundFont(), streamRateHz, FontLoading::whole));
    }

    void send(const ShortMessage& message) { EXPECT_TRUE(trySend(message)); }
    bool trySend(const ShortMessage& message) { return source_->send(stream_.nowNs(), message); }
    bool trySendLater(const ShortMessage& message) {
        return source_->send(stream_.nowNs() + 10'000 * msNs, message);
    }

    // A held note that sounds.
    void sound() {
        loadWith(squareLead);
        send(noteOn(69));
        pullMs(100);
    }

    [[nodiscard]] bool isHeardAfter(int milliseconds) {
        pullMs(milliseconds);
        const std::int64_t from = framesSoFar();
        pullMs(100);
        return onsetAfter(stream_.stereo, from, 0.001F) >= 0;
    }

    // A loaded synthesizer with the instrument on channel 0.
    void loadWith(unsigned program) {
        load();
        send(unpack(0xC0 | program << 8));
        pullMs(20);
    }

    void pullMs(int milliseconds) {
        for (int frames = milliseconds * 441 / 10; frames > 0; frames -= 256) {
            stream_.pull(std::min(frames, 256));
        }
    }

    // Pulls up to the last buffer before a moment.
    void pullUntil(std::int64_t momentNs) {
        while (stream_.nowNs() + 6 * msNs < momentNs) {
            stream_.pull(256);
        }
    }

    [[nodiscard]] std::int64_t framesSoFar() const {
        return static_cast<std::int64_t>(stream_.stereo.size() / 2);
    }

    SoundEngine engine_;
    HandPulled stream_{engine_};
    std::shared_ptr<SynthSource> source_ = std::make_shared<SynthSource>();
};

TEST_F(TheSynthesizer, PlaysAMessageTheConstantDelayAfterItsStamp) {
    loadWith(woodblock);
    const std::int64_t sent = framesSoFar();
    send(noteOn(76));
    pullMs(100);
    const std::int64_t onset = onsetAfter(stream_.stereo, sent, 0.001F);
    EXPECT_GE(onset, sent + SoundEngine::delayFrames);
    EXPECT_LT(onset, sent + SoundEngine::delayFrames + 2 * 64);
}

// Columns of 40 ms, 1764 frames, are sent in the middle of buffers of 256 frames. Where a note
// falls depends on its stamp alone; the synthesizer's blocks of 64 frames are all that is left.
TEST_F(TheSynthesizer, KeepsTheDistancesOfItsMessages) {
    loadWith(woodblock);
    const std::int64_t start = stream_.nowNs() + 20 * msNs;
    std::vector<std::int64_t> onsets;
    for (int column = 0; column < 20; ++column) {
        const std::int64_t stamp = start + column * 40 * msNs;
        pullUntil(stamp);
        const std::int64_t before = framesSoFar();
        EXPECT_TRUE(source_->send(stamp, noteOn(76)));
        pullUntil(stamp + 20 * msNs);
        source_->silence(stamp + 20 * msNs);
        EXPECT_TRUE(source_->send(stamp + 20 * msNs, unpack(0xC0 | woodblock << 8)));
        pullUntil(stamp + 35 * msNs);
        onsets.push_back(onsetAfter(stream_.stereo, before, 0.001F));
    }
    for (std::size_t i = 1; i < onsets.size(); ++i) {
        EXPECT_NEAR(static_cast<double>(onsets[i] - onsets[i - 1]), 1764, 64);
    }
}

TEST_F(TheSynthesizer, SoundsTheKeyItIsGiven) {
    loadWith(squareLead);
    const auto from = static_cast<std::size_t>(framesSoFar());
    send(noteOn(69)); // 440 Hz; a semitone is 26 Hz there
    pullMs(600);
    const double right = strengthOf(440.0, stream_.stereo, from + 8820, 16384);
    EXPECT_GT(right, 0.01);
    EXPECT_GT(right, 10 * strengthOf(415.3, stream_.stereo, from + 8820, 16384));
    EXPECT_GT(right, 10 * strengthOf(466.2, stream_.stereo, from + 8820, 16384));
}

TEST_F(TheSynthesizer, QueuesMessagesUntilTheFontIsLoaded) {
    send(unpack(0xC0 | squareLead << 8));
    send(noteOn(69));
    pullMs(300);
    EXPECT_EQ(onsetAfter(stream_.stereo, 0, 0.0F), -1);
    const std::int64_t loaded = framesSoFar();
    load();
    pullMs(200);
    const std::int64_t onset = onsetAfter(stream_.stereo, loaded, 0.001F);
    EXPECT_GE(onset, loaded);
    EXPECT_LT(onset, loaded + 4410);
}

TEST_F(TheSynthesizer, ThatCannotBeLoadedDropsItsMessages) {
    send(noteOn(69));
    source_->provide(nullptr);
    for (int i = 0; i < 100'000; ++i) {
        (void)trySend(noteOff(69));
    }
    pullMs(100);
    EXPECT_EQ(onsetAfter(stream_.stereo, 0, 0.0F), -1);
}

TEST_F(TheSynthesizer, IsSilentWithinABufferOfItsClosing) {
    loadWith(squareLead);
    send(noteOn(69));
    pullMs(200);
    const std::int64_t closed = framesSoFar();
    source_->silence(stream_.nowNs());
    pullMs(200);
    const std::int64_t silent = closed + SoundEngine::delayFrames + 64 + 128;
    EXPECT_EQ(onsetAfter(stream_.stereo, silent, 0.0F), -1);
    EXPECT_GE(onsetAfter(stream_.stereo, closed, 0.001F), closed);
}

TEST_F(TheSynthesizer, ResetsItsProgramsWhenItIsClosed) {
    loadWith(squareLead);
    source_->silence(stream_.nowNs());
    pullMs(50);
    send(noteOn(69));
    pullMs(2000);
    const auto late = stream_.stereo.size() / 2 - 8192;
    // A piano's note has faded by now; the lead's would hold.
    EXPECT_LT(strengthOf(440.0, stream_.stereo, late, 8192), 0.003);
}

TEST_F(TheSynthesizer, PlaysAgainRightAfterItWasClosed) {
    loadWith(squareLead);
    send(noteOn(69));
    pullMs(100);
    source_->silence(stream_.nowNs());
    send(unpack(0xC0 | squareLead << 8));
    send(noteOn(81));
    const auto from = static_cast<std::size_t>(framesSoFar());
    pullMs(600);
    const double right = strengthOf(880.0, stream_.stereo, from + 8820, 16384);
    EXPECT_GT(right, 0.01);
    EXPECT_LT(strengthOf(440.0, stream_.stereo, from + 8820, 16384), right / 10);
}

TEST_F(TheSynthesizer, IsTheSameInEveryRun) {
    std::vector<std::int16_t> runs[2];
    for (auto& run : runs) {
        const auto synth = FluidSynth::load(test::anySoundFont(), 44100, FontLoading::asNeeded);
        synth->send(noteOn(60));
        run.resize(2 * 22050);
        synth->render(run.data(), 22050);
    }
    EXPECT_EQ(runs[0], runs[1]);
}

constexpr int moreThanThereIsRoomFor = 100'000;

TEST_F(TheSynthesizer, TakesANoteOffWhenItTakesNoMoreNotes) {
    sound();
    int refused = 0;
    for (int i = 0; i < moreThanThereIsRoomFor; ++i)
        refused += trySend(noteOn(69)) ? 0 : 1;
    EXPECT_GT(refused, 0);
    EXPECT_TRUE(trySend(noteOff(69)));
    EXPECT_FALSE(isHeardAfter(3000));
}

// A dropped note-off would leave the note hanging.
TEST_F(TheSynthesizer, IsSilencedWhenThereIsNoRoomForANoteOff) {
    sound();
    int taken = 0;
    while (trySendLater(noteOff(60)) && taken < moreThanThereIsRoomFor)
        ++taken;
    EXPECT_LT(taken, moreThanThereIsRoomFor);
    EXPECT_FALSE(isHeardAfter(100));
    send(noteOn(69));
    EXPECT_TRUE(isHeardAfter(0)) << "it plays on";
}

TEST_F(TheSynthesizer, IsSilencedWhenThereIsNoRoomForASilence) {
    sound();
    for (int i = 0; i < 1 << 15; ++i)
        ASSERT_TRUE(trySendLater(noteOff(60)));
    EXPECT_TRUE(isHeardAfter(100));
    source_->silence(stream_.nowNs());
    EXPECT_FALSE(isHeardAfter(100));
}

} // namespace
} // namespace velorin::host

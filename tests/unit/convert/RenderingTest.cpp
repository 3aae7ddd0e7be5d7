// Renderings into targets that fail, and WAV files with something wrong.
#include "convert/SoundRendering.h"

#include "ScoreSounds.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <sndfile.h>

#include <algorithm>
#include <fstream>
#include <vector>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// Counts its frames; fails once it would have more than `most`.
class CountedTarget final : public SoundTarget {
public:
    CountedTarget(std::int64_t& frames, std::int64_t most) : frames_(frames), most_(most) {}

    bool write(const std::int16_t* /*stereo*/, int frames) override {
        if (frames_ + frames > most_)
            return false;
        frames_ += frames;
        return true;
    }
    platform::Result<void> finish() override { return {}; }
    std::string failureReason() const override { return "is full"; }

private:
    std::int64_t& frames_;
    std::int64_t most_;
};

class ARendering : public testing::Test {
protected:
    ARendering() {
        request_.soundFont = test::usualOptions().soundFont;
        request_.rateHz = 8000;
        request_.progress = [this](double share) { shares_.push_back(share); };
        request_.warning = [this](const std::string& text) { warnings_.push_back(text); };
    }

    void writeScore() {
        request_.source = (folder_.path() / "in.sng").string();
        std::ofstream(request_.source, std::ios::binary) << test::scoreOf(100, {{0, 0, 60, 4, 0}});
    }

    void writeMidi() {
        request_.source = (folder_.path() / "in.mid").string();
        std::ofstream(request_.source, std::ios::binary)
            << std::string("MThd\0\0\0\6\0\0\0\1\0\4MTrk\0\0\0\x0C", 22)
            << std::string("\0\x90\x3C\x7F\x20\x80\x3C\0\0\xFF\x2F\0", 12);
    }

    /// A WAV file at 8000 frames a second.
    void writeWav(int frames, int channels = 2) {
        request_.source = (folder_.path() / "in.wav").string();
        SF_INFO info{};
        info.samplerate = 8000;
        info.channels = channels;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        SNDFILE* const file = sf_open(request_.source.c_str(), SFM_WRITE, &info);
        const std::vector<short> sound(static_cast<std::size_t>(frames * channels), 1000);
        sf_writef_short(file, sound.data(), frames);
        sf_close(file);
    }

    [[nodiscard]] MakeTarget targetOf(std::int64_t most = 1'000'000) {
        return [this, most](int, int channels) {
            channels_ = channels;
            return MadeTarget(std::make_unique<CountedTarget>(frames_, most));
        };
    }

    [[nodiscard]] static MakeTarget noTarget() {
        return [](int, int) -> MadeTarget { return platform::Failure{"has no place"}; };
    }

    scripted::TemporaryFolder folder_;
    SoundRequest request_;
    std::int64_t frames_ = 0;
    int channels_ = 0;
    std::vector<double> shares_;
    std::vector<std::string> warnings_;
};

TEST_F(ARendering, WithoutATargetFailsWithItsReason) {
    writeScore();
    EXPECT_EQ(renderScore(request_, noTarget()).reason(), "has no place");
    writeMidi();
    EXPECT_EQ(renderMidi(request_, noTarget()).reason(), "has no place");
    writeWav(100);
    EXPECT_EQ(copyWav(request_, noTarget()).reason(), "has no place");
}

TEST_F(ARendering, EndsWithTheReasonOfItsTarget) {
    writeScore();
    EXPECT_EQ(renderScore(request_, targetOf(1000)).reason(), "is full");
    writeMidi();
    EXPECT_EQ(renderMidi(request_, targetOf(1000)).reason(), "is full");
    writeWav(20'000);
    EXPECT_EQ(copyWav(request_, targetOf(1000)).reason(), "is full");
    EXPECT_LE(frames_, 1000);
}

TEST_F(ARendering, WithoutASoundFontFails) {
    request_.soundFont = folder_.path() / "no.sf2";
    const std::string reason = "cannot be played: no SoundFont " + request_.soundFont.string();
    writeScore();
    EXPECT_EQ(renderScore(request_, targetOf()).reason(), reason);
    writeMidi();
    EXPECT_EQ(renderMidi(request_, targetOf()).reason(), reason);
    EXPECT_EQ(frames_, 0);
}

TEST_F(ARendering, OfAMidiFileReportsItsProgressUpToTheEnd) {
    writeMidi();
    ASSERT_EQ(renderMidi(request_, targetOf()).reason(), "");
    ASSERT_FALSE(shares_.empty());
    EXPECT_TRUE(std::is_sorted(shares_.begin(), shares_.end()));
    EXPECT_DOUBLE_EQ(shares_.back(), 1.0);
}

// A piece has 8192 frames.
TEST_F(ARendering, OfAWavFileReportsItsProgressAfterEachPiece) {
    writeWav(16'384);
    ASSERT_EQ(copyWav(request_, targetOf()).reason(), "");
    EXPECT_EQ(frames_, 16'384);
    EXPECT_THAT(shares_, ElementsAre(0.5, 1.0));
    EXPECT_THAT(warnings_, ElementsAre());
}

TEST_F(ARendering, OfAMonoWavFileHasOneChannel) {
    writeWav(100, 1);
    ASSERT_EQ(copyWav(request_, targetOf()).reason(), "");
    EXPECT_EQ(channels_, 1);
    EXPECT_EQ(frames_, 100);
}

TEST_F(ARendering, OfAWavFileWithoutSoundWarns) {
    writeWav(0);
    ASSERT_EQ(copyWav(request_, targetOf()).reason(), "");
    EXPECT_THAT(warnings_, ElementsAre("has no sound"));
}

TEST_F(ARendering, NeedsNoCallbacks) {
    writeWav(0);
    request_.progress = nullptr;
    request_.warning = nullptr;
    EXPECT_EQ(copyWav(request_, targetOf()).reason(), "");
    writeWav(100);
    EXPECT_EQ(copyWav(request_, targetOf()).reason(), "");
    EXPECT_EQ(frames_, 100);
}

} // namespace
} // namespace velorin::convert

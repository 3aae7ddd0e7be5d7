// A power cut while the converter writes.
#include "DiskStage.h"
#include "convert/Conversion.h"
#include "host/media/Lame.h"
#include "host/synth/SoundFonts.h"

#include <gtest/gtest.h>

namespace velorin::disk {
namespace {

namespace fs = std::filesystem;

class AConversionOnTheDisk : public testing::Test {
protected:
    AConversionOnTheDisk() {
        const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
        EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
        if (!fonts.empty())
            options.soundFont = fonts.front().path;
        options.rateHz = 8000;
        options.bitrate = 32;
        std::string score = "60\r\n115\r\n";
        for (int row = 1; row < 13; ++row)
            score += "-1\r\n0\r\n";
        song.put("song.sng", score + " 900 \r\n115,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }

    /// Records a conversion. In every state the output must be the old or the new one.
    void expectPromiseKept(const std::string& writer, const std::string& name, convert::Kind kind,
                           const std::optional<std::string>& older) {
        if (older)
            stage.put(name, *older);
        const auto log = recorded(stage.path(), [&](DiskRecorder& recorder) {
            EXPECT_TRUE(
                convert::convert({song.at("song.sng"), stage.path() / name, kind}, options, {}));
            recorder.mark(saved);
        });
        const Promise promise{name, older, stage.content(name)};
        EXPECT_GT(promise.after.size(), 40U);
        EXPECT_NE(promise.after, older);
        expectNoBadState(writer, log, [&promise](const DiskState& state) {
            return firstOf({broken(state, promise), strangers(state, {promise.name})});
        });
        EXPECT_EQ(stage.names(), std::vector<std::string>{name}) << "nothing is left over";
    }

    DiskStage song;
    DiskStage stage;
    convert::Options options;
};

TEST_F(AConversionOnTheDisk, ToAWavIsThereWholeOrNotAtAll) {
    expectPromiseKept("a converted WAV", "a.wav", convert::Kind::wav, {});
}

TEST_F(AConversionOnTheDisk, ToAWavOverAnOlderOneIsTheOlderOrTheNewerOne) {
    expectPromiseKept("a converted WAV over an older one", "a.wav", convert::Kind::wav,
                      std::string(90'000, 'o'));
}

TEST_F(AConversionOnTheDisk, ToAnMp3OverAnOlderOneIsTheOlderOrTheNewerOne) {
    if (!host::Lame::load(host::Lame::fileName))
        GTEST_SKIP() << "no MP3 encoder (libmp3lame0)";
    expectPromiseKept("a converted MP3 over an older one", "a.mp3", convert::Kind::mp3,
                      std::string(9'000, 'o'));
}

TEST_F(AConversionOnTheDisk, ToAMidiFileOverAnOlderOneIsTheOlderOrTheNewerOne) {
    expectPromiseKept("a converted MIDI file over an older one", "a.mid", convert::Kind::mid,
                      std::string(900, 'o'));
}

} // namespace
} // namespace velorin::disk

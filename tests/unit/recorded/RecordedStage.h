// The recording logic on the real devices, files and encoder, over a stream that is pulled by hand.
#pragma once

#include "../host/mci/MciStage.h"
#include "../recording/RecordingStage.h"
#include "host/files/HostFiles.h"
#include "host/media/LameEncoder.h"
#include "host/media/SoundReader.h"
#include "platform/PathLookup.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace velorin::test {

/// Six beats in three seconds, each in the second half of a half second: a pure tone, on the
/// right half as loud as on the left.
class Beats final : public host::SoundSource {
public:
    static constexpr double hz = 600.0;
    static constexpr double firstS = 0.25;
    static constexpr double apartS = 0.5;
    static constexpr double lengthS = 3.0;
    static constexpr int count = 6;
    static constexpr double left = 0.5;
    static constexpr double right = 0.25;

    void mix(host::SoundBlock& block, std::int64_t firstFrame, const host::StreamClock&) override {
        for (int i = 0; i < host::blockFrames; ++i) {
            const double time = static_cast<double>(firstFrame + i) / host::streamRateHz;
            if (std::fmod(time, apartS) < firstS)
                continue;
            const double wave = std::sin(2.0 * M_PI * hz * time);
            block[static_cast<std::size_t>(2 * i)] += static_cast<float>(left * wave);
            block[static_cast<std::size_t>(2 * i + 1)] += static_cast<float>(right * wave);
        }
    }
};

/// One side of a sound file.
struct Side {
    std::vector<float> samples;
    double rateHz = 0.0;

    [[nodiscard]] double seconds() const { return static_cast<double>(samples.size()) / rateHz; }

    /// Where the sound becomes louder than half of `amplitude` after a tenth of a second of less.
    [[nodiscard]] std::vector<double> onsets(double amplitude) const {
        std::vector<double> found;
        double lastLoud = -1.0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double time = static_cast<double>(i) / rateHz;
            if (std::abs(samples[i]) < 0.5 * amplitude)
                continue;
            if (time - lastLoud > 0.1)
                found.push_back(time);
            lastLoud = time;
        }
        return found;
    }

    /// The amplitude of a pure tone in [fromS, fromS + lengthS).
    [[nodiscard]] double strength(double hz, double fromS, double lengthS) const {
        const auto from = static_cast<std::size_t>(fromS * rateHz);
        const auto count = static_cast<std::size_t>(lengthS * rateHz);
        double real = 0.0;
        double imaginary = 0.0;
        for (std::size_t i = 0; i < count && from + i < samples.size(); ++i) {
            const double phase = 2.0 * M_PI * hz * static_cast<double>(i) / rateHz;
            real += std::cos(phase) * samples[from + i];
            imaginary += std::sin(phase) * samples[from + i];
        }
        return 2.0 * std::hypot(real, imaginary) / static_cast<double>(count);
    }
};

/// The sides of a WAV file.
inline std::vector<Side> sidesOf(const std::string& wav) {
    const auto file = host::openWav(wav);
    EXPECT_TRUE(file) << wav;
    if (!file)
        return {};
    std::vector<float> stereo(2 * static_cast<std::size_t>(file->frames()));
    const auto got =
        static_cast<std::size_t>(file->read(stereo.data(), static_cast<int>(file->frames())));
    std::vector<Side> sides(static_cast<std::size_t>(file->channels()));
    for (std::size_t side = 0; side < sides.size(); ++side) {
        sides[side].rateHz = file->rateHz();
        for (std::size_t i = 0; i < got; ++i)
            sides[side].samples.push_back(stereo[2 * i + side]);
    }
    return sides;
}

class RecordedStage : public host::test::MciStage {
protected:
    RecordedStage() {
        studio_.run.SongsFolder = folder_.string();
        player_.Recordcontrol = [this] { capture_.Recordcontrol(); };
        player_.makeStopWatches();
        studio_.desk = &mainDesk_;
        mainDesk_.endRecording = [this] { capture_.Recordcontrol(); };
        desk_.lists[RecordList::Combo4] = 8; // 128 kilobits a second
        engine_.add(std::make_shared<Beats>());
    }

    /// Records the beats in a row of `cbxFormat`; returns the WAV's name.
    std::string record(int format) {
        desk_.lists[RecordList::cbxFormat] = format;
        mainDesk_.onPlay = [this] { pull(static_cast<int>(Beats::lengthS * host::streamRateHz)); };
        capture_.Cmdrecord_Click();
        EXPECT_EQ(boxes(), Lines{});
        return wavName();
    }

    /// Presses the encode button; returns the MP3's name.
    std::string encode() {
        encoding_.Command20_Click();
        return ChangeExtension(wavName(), "mp3");
    }

    /// The path of the recording for other programs.
    [[nodiscard]] std::string wavName() const {
        return platform::resolve(studio_.run.WavFileName).string();
    }

    Lines boxes() { return std::exchange(host_.boxes.log, {}); }

    scripted::ScriptedPlatform host_;
    host::HostFiles files_;
    host::LameEncoder encoder_{"/nowhere"};
    platform::Platform platform_{host_.platform.clock,
                                 host_.platform.loop,
                                 host_.platform.midi,
                                 mci_,
                                 host_.platform.dialogs,
                                 host_.platform.boxes,
                                 files_,
                                 host_.platform.settings,
                                 host_.platform.desktop,
                                 host_.platform.menus,
                                 host_.platform.timers,
                                 host_.platform.systemFiles,
                                 encoder_,
                                 folder_.string()};
    Session session_{platform_};
    Studio& studio_ = session_.studio;
    PlainRecordDesk desk_;
    LoggedDesk mainDesk_;
    modMultimedia media_{platform_, desk_};
    Mp3Player mp3_{studio_, media_, session_.watch, desk_};
    FilePlayer player_{session_, mp3_, desk_};
    Mp3Encoding encoding_{studio_, desk_};
    Capture capture_{session_, player_, encoding_, desk_};
};

} // namespace velorin::test

// The studio played offline: the sequencer waits on a clock that jumps, and the synthesizer fills
// the time between two messages with sound.
#include "convert/WavRendering.h"

#include "convert/LoadedScore.h"
#include "convert/RenderedMidi.h"
#include "convert/WholeFile.h"
#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"

#include <sndfile.h>

#include <algorithm>
#include <memory>

namespace velorin::convert {

namespace {

constexpr std::int64_t mostFrames = (0xFFFFFFFFLL - 1024) / 4; ///< what a WAV file's header can say

struct SoundFileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

class WavFile {
public:
    WavFile(const std::filesystem::path& path, int rateHz) {
        SF_INFO info{};
        info.samplerate = rateHz;
        info.channels = 2;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        file_.reset(sf_open(path.string().c_str(), SFM_WRITE, &info));
    }

    [[nodiscard]] bool isOpen() const { return file_ != nullptr; }

    bool write(const std::int16_t* stereo, int frames) {
        frames_ += frames;
        return frames_ <= mostFrames && sf_writef_short(file_.get(), stereo, frames) == frames;
    }

    [[nodiscard]] std::string whyFailed() const {
        if (frames_ > mostFrames)
            return "is too long for a WAV file";
        return std::string("cannot be written: ") + sf_strerror(file_.get());
    }

    /// False if the rest could not be written.
    bool close() { return sf_close(file_.release()) == 0; }

private:
    std::unique_ptr<SNDFILE, SoundFileCloser> file_;
    std::int64_t frames_ = 0;
};

void reportProgress(LoadedScore& score, const std::function<void(double)>& progress) {
    const double columns = std::max<int>(score.studio.score.LastColumn, 1);
    progress(std::min(score.studio.run.PlayColumn / columns, 1.0));
}

// As the program does it from its start: the device opens, then the play command runs to its end.
void play(LoadedScore& score) {
    NoteSounding sounding(score.studio, score.desk);
    StopWatch watch(score.host.clock, score.host.loop);
    Sequencer sequencer(score.studio, sounding, watch, score.desk);
    sequencer.PlayTimer = watch.StopWatchNew();
    sounding.Device_Click();
    sequencer.PlayAndStop_Click(0);
}

} // namespace

std::string renderWav(const WavRequest& request) {
    const auto synth =
        host::Synth::load(request.soundFont, request.rateHz, host::FontLoading::asNeeded);
    if (!synth)
        return "cannot be played: no SoundFont " + request.soundFont.string();

    WholeFile whole(request.target);
    WavFile wav(whole.part(), request.rateHz);
    LoadedScore* playing = nullptr;
    RenderedMidi midi(*synth, request.rateHz, [&](const std::int16_t* stereo, int frames) {
        const bool written = wav.write(stereo, frames);
        if (!written)
            playing->host.loop.end();
        return written;
    });
    LoadedScore score(midi);
    playing = &score;
    midi.setClock(score.host.clock);
    if (const std::string problem = score.open(request.score); !problem.empty())
        return problem;
    if (!wav.isOpen())
        return wav.whyFailed();
    if (request.progress)
        score.host.loop.onYield = [&] { reportProgress(score, request.progress); };
    play(score);
    midi.catchUp();
    midi.renderTail();
    if (midi.failed())
        return wav.whyFailed();
    if (!wav.close())
        return "cannot be written to its end";
    return whole.finish();
}

} // namespace velorin::convert
